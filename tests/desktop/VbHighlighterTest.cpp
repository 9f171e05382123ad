#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include "QtFixture.h"
#include "desktop/editor/VbHighlighter.h"
#include "support/Rows.h"

namespace quorvane::desktop {
namespace {

class VbHighlighterTest : public QtTest {};

/// One letter for each character of the text: k keyword, c comment, t string, n number, d directive, "." plain.
std::string Colored(const std::u16string& text) {
  CodeColors colors;
  colors.keyword = QColor(1, 0, 0);
  colors.comment = QColor(2, 0, 0);
  colors.text = QColor(3, 0, 0);
  colors.number = QColor(4, 0, 0);
  colors.directive = QColor(5, 0, 0);
  QTextDocument document;
  VbHighlighter highlighter(&document, colors);
  document.setPlainText(QString::fromStdU16String(text));
  highlighter.rehighlight();
  std::string shown;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    std::string line(static_cast<std::size_t>(block.text().size()), '.');
    for (const auto& range : block.layout()->formats()) {
      const int kind = range.format.foreground().color().red();
      for (int i = 0; i < range.length; ++i) line[static_cast<std::size_t>(range.start + i)] = ".kctnd"[kind];
    }
    shown += (shown.empty() ? "" : "|") + line;
  }
  return shown;
}

TEST_F(VbHighlighterTest, ColorsByKind) {
  for (const test::Row& row : test::Rows("desktop/VbHighlighter.rows", "Colors")) {
    EXPECT_EQ(Colored(row.Text(0)), row.Bytes(1)) << row.Where();
  }
}

}  // namespace
}  // namespace quorvane::desktop

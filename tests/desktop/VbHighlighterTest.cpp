#include <gtest/gtest.h>

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <string>

#include "QtFixture.h"
#include "desktop/editor/VbHighlighter.h"

namespace quorvane::desktop {
namespace {

class VbHighlighterTest : public QtTest {};

/// One letter for each character of the text: k keyword, c comment, t string, n number, d directive, "." plain.
std::string Colored(const char16_t* text) {
  CodeColors colors;
  colors.keyword = QColor(1, 0, 0);
  colors.comment = QColor(2, 0, 0);
  colors.text = QColor(3, 0, 0);
  colors.number = QColor(4, 0, 0);
  colors.directive = QColor(5, 0, 0);
  QTextDocument document;
  VbHighlighter highlighter(&document, colors);
  document.setPlainText(QString::fromUtf16(text));
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
  struct Case {
    const char16_t* text;
    const char* colors;
  };
  const Case cases[] = {
      {u"Dim x As Long", "kkk...kk.kkkk"},
      {u"DIM dimension", "kkk.........."},
      {u"x = \"a 'b\" ' c", "....tttttt.ccc"},
      {u"x = \"a\"\"b\"", "....tttttt"},
      {u"s = \"open", "....ttttt"},
      {u"' one _\ntwo _\nx", "ccccccc|ccccc|c"},
      {u"' one\nx", "ccccc|."},
      {u"Rem one", "ccccccc"},
      {u"x: Rem one", "...ccccccc"},
      {u"Remark = 1", ".........n"},
      {u"x.Print Rem", "..........."},
      {u"If a Then Rem b", "kk...kkkk.ccccc"},
      {u"a = _\nRem", ".....|..."},
      {u"n = &HFF + 1.5e-3# + 7&", "....nnnn...nnnnnnn...nn"},
      {u"#If x Then", "dddddddddd"},
      {u"d = #1/2/2000#", ".....n.n.nnnnn"},
  };
  for (const Case& row : cases) EXPECT_EQ(Colored(row.text), row.colors) << QString::fromUtf16(row.text).toStdString();
}

}  // namespace
}  // namespace quorvane::desktop

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <memory>

#include "QtFixture.h"
#include "base/Text.h"
#include "desktop/editor/ModuleBinding.h"
#include "desktop/platform/QtText.h"
#include "native/codepages/CodePages.h"
#include "platform/CodePage.h"
#include "support/Rows.h"
#include "support/Seed.h"
#include "workbench/model/Module.h"
#include "workbench/text/SourceFile.h"
#include "workbench/text/TurnClock.h"

namespace quorvane::desktop {
namespace {

/// A module under UTF-8 with a document that shows it.
class ModuleBindingTest : public QtTest {
 protected:
  void Open(std::u16string_view text) {
    module =
        std::make_shared<workbench::Module>(std::make_shared<const workbench::SourceFile>(ToUtf8(text)), *page, turns);
    document = std::make_unique<QTextDocument>();
    binding = std::make_unique<ModuleBinding>(module, *document);
  }

  /// Blocks joined by "|".
  std::string Blocks() const {
    QStringList lines;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) lines << block.text();
    return ToUtf8(FromQString(lines.join(QLatin1Char('|'))));
  }
  std::string Text() const { return ToUtf8(ReplaceAll(module->Text(), kCrLf, u"|")); }

  /// The user replaces what lies between two places of the document.
  void Replace(int from, int to, const char16_t* text) {
    turns.Next();
    QTextCursor cursor(document.get());
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    cursor.insertText(QString::fromUtf16(text));
  }

  std::unique_ptr<CodePage> page = native::NewCodePage("UTF-8");
  workbench::TurnClock turns;
  std::shared_ptr<workbench::Module> module;
  std::unique_ptr<QTextDocument> document;
  std::unique_ptr<ModuleBinding> binding;
};

TEST_F(ModuleBindingTest, TypedEditsReachTheModule) {
  for (const test::Row& row : test::Rows("desktop/ModuleBinding.rows", "TypedEdits")) {
    Open(row.Text(0).c_str());
    Replace(row.Number(1), row.Number(2), row.Text(3).c_str());
    EXPECT_EQ(Text(), row.Bytes(4)) << row.Where();
    EXPECT_EQ(Blocks(), row.Bytes(4)) << row.Where();
  }
}

TEST_F(ModuleBindingTest, OnlyChangedLinesAreEdited) {
  Open(u"one\r\ntwo\r\nthree");
  Replace(4, 7, u"2");
  EXPECT_TRUE(module->Modified());
  module->Undo();
  EXPECT_FALSE(module->Modified());
  binding->Pull();
  EXPECT_EQ(Blocks(), "one|two|three");
  Replace(4, 7, u"two");  // the same again
  EXPECT_FALSE(module->Modified());
}

TEST_F(ModuleBindingTest, SignsStandForWhatWouldBreakABlock) {
  Open(u"a\u2028b\uFDD0c\uFFFCd\r\nnext");
  EXPECT_EQ(document->blockCount(), 2);
  EXPECT_EQ(document->firstBlock().length() - 1, 7);
  Replace(7, 7, u"!");
  Replace(0, 0, u"?");
  EXPECT_EQ(module->Lines(1, 1), u"?a\u2028b\uFDD0c\uFFFCd!");
}

TEST_F(ModuleBindingTest, EditsOfTheModuleShowAtTheEndOfTheTurn) {
  Open(u"one\r\ntwo\r\nthree");
  module->InsertLines(2, u"new\r\nlines");
  module->DeleteLines(5, 1);
  EXPECT_EQ(Blocks(), "one|two|three");
  QCoreApplication::processEvents();
  EXPECT_EQ(Blocks(), "one|new|lines|two");
  EXPECT_FALSE(document->isUndoAvailable());
}

TEST_F(ModuleBindingTest, EditOfADocumentThatIsBehindGivesWayToTheModule) {
  Open(u"one\r\ntwo");
  module->InsertLines(1, u"zero");
  Replace(0, 0, u"x");
  EXPECT_EQ(Text(), "zero|one|two");
  QCoreApplication::processEvents();
  EXPECT_EQ(Blocks(), "zero|one|two");
}

/// Random edits from both sides, undo and redo among them: the two sides agree, and agree with a plain string that goes
/// through the same typed edits.
TEST_F(ModuleBindingTest, BothSidesStayTheSame) {
  std::mt19937 random(test::NewSeed());
  const auto below = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(std::max(1, bound))); };
  const std::vector<std::u16string> pieces = {u"", u"a", u"\n", u"b\nc", u"\n\n", u"\u2028", u"\U0001F600", u"x\n"};
  const auto lines = [](std::u16string text) { return ReplaceAll(text, u"\n", kCrLf); };
  for (int round = 0; round < 40; ++round) {
    Open(round % 4 == 0 ? u"" : u"one\r\n\r\ntwo\r\nthree\u2028x");
    for (int step = 0; step < 60; ++step) {
      const int choice = below(10);
      turns.Next();
      if (choice < 6) {
        std::u16string expected = ReplaceAll(module->Text(), kCrLf, u"\n");
        const int size = static_cast<int>(expected.size());
        const int from = below(size + 1);
        const int to = from + below(std::min(8, size - from + 1));
        // Line separators reach the document as blocks when typed, which the editor sees to.
        const std::u16string& piece = pieces[static_cast<std::size_t>(below(static_cast<int>(pieces.size())))];
        const std::u16string typed = ReplaceAll(piece, u"\u2028", u"-");
        expected.replace(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from), typed);
        Replace(from, to, typed.c_str());
        ASSERT_EQ(ToUtf8(module->Text()), ToUtf8(lines(expected))) << "step " << step;
      } else if (choice < 8) {
        const std::u16string& piece = pieces[static_cast<std::size_t>(below(static_cast<int>(pieces.size())))];
        if (below(2) == 0 && module->CountOfLines() > 0) {
          const int line = 1 + below(module->CountOfLines());
          module->DeleteLines(line, 1 + below(std::min(3, module->CountOfLines() - line + 1)));
        }
        module->InsertLines(1 + below(module->CountOfLines() + 1), lines(piece));
      } else {
        choice == 8 ? module->Undo() : module->Redo();
      }
      binding->Pull();
      ASSERT_EQ(Blocks(), ToUtf8(ReplaceAll(ReplaceAll(module->Text(), kCrLf, u"|"), u"\u2028", u"\u2424")))
          << "step " << step;
    }
  }
}

}  // namespace
}  // namespace quorvane::desktop

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "TextPages.h"
#include "base/Text.h"
#include "support/Raised.h"
#include "support/Seen.h"
#include "workbench/model/Module.h"

namespace quorvane::workbench {
namespace {

using test::Raised;

using Rows = std::vector<std::u16string>;

struct ModuleTextTest : testing::Test {
  Module Make(std::string bytes, const CodePage* codePage = nullptr) {
    return Module(std::make_shared<SourceFile>(std::move(bytes)), codePage != nullptr ? *codePage : latin, clock);
  }

  LatinPage latin;
  TwoBytePage twoByte;
  TurnClock clock;
};

std::u16string Join(const Rows& rows, std::size_t first = 0, std::size_t count = SIZE_MAX) {
  std::u16string text;
  for (std::size_t i = first; i < rows.size() && i - first < count; ++i) text += (i > first ? u"\r\n" : u"") + rows[i];
  return text;
}

TEST_F(ModuleTextTest, InsertsTheLinesOfAText) {
  static const std::vector<std::pair<std::u16string, std::u16string>> kCases = {
      {u"x", u"A|x|B"},    {u"", u"A||B"},          {u"x\n", u"A|x|B"},     {u"x\r\n", u"A|x||B"},
      {u"\n", u"A||B"},    {u"\r\n", u"A|||B"},     {u"x\n\n", u"A|x||B"},  {u"x\r\ny\rz\nw", u"A|x|y|z|w|B"},
      {u"x\r", u"A|x||B"}, {u"x\r\n\n", u"A|x||B"}, {u"\n\rx", u"A|||x|B"},
  };
  for (const auto& [text, expected] : kCases) {
    Module module = Make("A\nB");
    module.InsertLines(2, text);
    EXPECT_EQ(ToUtf8(ReplaceAll(module.Text(), kCrLf, u"|")), ToUtf8(expected)) << ToUtf8(text);
  }
  Module module = Make("");
  module.InsertLines(7, u"x");
  module.InsertLines(7, u"y");
  EXPECT_EQ(module.Text(), u"x\r\ny");
}

TEST_F(ModuleTextTest, RefusesLinesThatDoNotExist) {
  Module whole = Make("A\r\nB\r\nC");
  const auto module = test::Seen(whole);
  const std::uint64_t revision = whole.Revision();
  EXPECT_EQ(Raised([&] { module->InsertLines(0, u"x"); }), 9);
  EXPECT_EQ(Raised([&] { module->DeleteLines(0, 1); }), 9);
  EXPECT_EQ(Raised([&] { module->DeleteLines(3, 2); }), 9);
  EXPECT_EQ(Raised([&] { module->DeleteLines(2, 0x7FFFFFFF); }), 9);
  EXPECT_EQ(Raised([&] { module->DeleteLines(2, -1); }), 9);
  EXPECT_EQ(Raised([&] { module->DeleteLines(2, 0); }), 0);
  EXPECT_EQ(whole.Revision(), revision);
  EXPECT_FALSE(whole.CanUndo());

  EXPECT_EQ(module->Lines(-1, 3), u"A");
  EXPECT_EQ(module->Lines(2, 0x7FFFFFFF), u"B\r\nC");
  EXPECT_EQ(module->Lines(2, 0), u"");
  EXPECT_EQ(module->Lines(2, -3), u"");
  EXPECT_EQ(module->Lines(4, 1), u"");
}

/// A module and a plain list of lines, edited alike; what undo gives is looked up among the states of before.
class Twin {
 public:
  Twin(Module& module, TurnClock& clock, Rows rows, unsigned seed)
      : module_(module), seen_(test::Seen(module)), clock_(clock), rows_(std::move(rows)), random_(seed) {}

  void Act() {
    const auto what = random_() % 10;
    if (what < 4) {
      Insert();
    } else if (what < 7 && !rows_.empty()) {
      Delete();
    } else if (what == 7) {
      clock_.Next();
      open_ = false;
    } else if (what == 8) {
      EXPECT_EQ(module_.Undo(), !undo_.empty());
      Travel(undo_, redo_);
    } else {
      EXPECT_EQ(module_.Redo(), !redo_.empty());
      Travel(redo_, undo_);
    }
  }

  void Compare() {
    ASSERT_EQ(seen_->CountOfLines(), static_cast<std::int32_t>(rows_.size()));
    ASSERT_EQ(module_.Text(), Join(rows_));
    const std::size_t first = random_() % (rows_.size() + 2);
    const std::size_t count = random_() % 5;
    ASSERT_EQ(seen_->Lines(static_cast<std::int32_t>(first) + 1, static_cast<std::int32_t>(count)),
              Join(rows_, first, count));
    ASSERT_EQ(module_.CanUndo(), !undo_.empty());
    ASSERT_EQ(module_.CanRedo(), !redo_.empty());
  }

  const Rows& Now() const { return rows_; }

 private:
  void Note() {
    if (!open_) undo_.push_back(rows_);
    open_ = true;
    redo_.clear();
  }
  void Travel(std::vector<Rows>& from, std::vector<Rows>& to) {
    if (from.empty()) return;
    open_ = false;
    to.push_back(std::exchange(rows_, from.back()));
    from.pop_back();
  }
  void Insert() {
    Note();
    const std::size_t at = random_() % (rows_.size() + 2);
    Rows fresh;
    for (auto n = 1 + random_() % 3; n > 0; --n) fresh.push_back(u"new " + ToText(++serial_));
    seen_->InsertLines(static_cast<std::int32_t>(at) + 1, Join(fresh));
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(std::min(at, rows_.size())), fresh.begin(), fresh.end());
  }
  void Delete() {
    Note();
    const std::size_t at = random_() % rows_.size();
    const std::size_t count = 1 + random_() % std::min<std::size_t>(rows_.size() - at, 4);
    seen_->DeleteLines(static_cast<std::int32_t>(at) + 1, static_cast<std::int32_t>(count));
    const auto first = rows_.begin() + static_cast<std::ptrdiff_t>(at);
    rows_.erase(first, first + static_cast<std::ptrdiff_t>(count));
  }

  Module& module_;
  std::shared_ptr<vbide::CodeModule> seen_;
  TurnClock& clock_;
  Rows rows_;
  std::vector<Rows> undo_;
  std::vector<Rows> redo_;
  std::mt19937 random_;
  bool open_ = false;
  int serial_ = 0;
};

TEST_F(ModuleTextTest, EditsAndUndoesLikeAPlainList) {
  static const std::vector<std::vector<std::string>> kEnds = {
      {"\r\n"}, {"\n"}, {"\r"}, {"\n", "\r\n", "\r\n", "\r", "\r\n"}};
  for (unsigned seed = 0; seed < 60; ++seed) {
    SCOPED_TRACE(seed);
    const std::vector<std::string> ends = kEnds[seed % kEnds.size()];
    Rows rows;
    std::string bytes = "Attribute VB_Name = \"M\"\r\n";
    for (unsigned i = 0; i < seed % 40; ++i) {
      rows.push_back(i % 3 == 1 ? u"" : u"line " + ToText(i));
      bytes += ToUtf8(rows.back()) + ends[i % ends.size()];
      if (i % 5 == 1) bytes += "Attribute x.VB_X = 1" + ends[0];
    }
    Module module = Make(bytes);
    Twin twin(module, clock, rows, seed);
    std::uint64_t revision = 0;
    for (int n = 0; n < 150; ++n) {
      twin.Act();
      twin.Compare();
      if (HasFatalFailure()) return;
      EXPECT_GE(module.Revision(), revision);
      revision = module.Revision();
    }
    while (module.Undo()) {
    }
    EXPECT_EQ(module.Text(), Join(rows));
    EXPECT_FALSE(module.Modified());
  }
}

TEST_F(ModuleTextTest, KnowsWhatWasSaved) {
  Module module = Make("A\r\nB\r\n");
  int changes = 0;
  const Subscription subscription = module.Changed.Subscribe([&] { ++changes; });
  std::vector<std::uint64_t> revisions = {module.Revision()};
  const auto note = [&] { revisions.push_back(module.Revision()); };
  EXPECT_NE(revisions[0], 0U);
  module.DeleteLines(1, 1), note();
  module.MarkSaved(std::make_shared<SourceFile>("B\r\n"));
  EXPECT_FALSE(module.Modified());
  module.InsertLines(1, u"x"), note();  // the same turn, but a step of its own after the save
  EXPECT_TRUE(module.Modified());
  EXPECT_TRUE(module.Undo()), note();
  EXPECT_FALSE(module.Modified());
  EXPECT_EQ(module.Text(), u"B");
  EXPECT_TRUE(module.Undo()), note();
  EXPECT_TRUE(module.Modified());
  EXPECT_EQ(module.Text(), u"A\r\nB");
  EXPECT_TRUE(module.Redo()), note();
  EXPECT_FALSE(module.Modified());
  EXPECT_EQ(changes, 5);
  for (std::size_t i = 1; i < revisions.size(); ++i) EXPECT_GT(revisions[i], revisions[i - 1]);
}

TEST_F(ModuleTextTest, ManyEditsOfOneTurnAreOneStep) {
  constexpr std::int32_t kLines = 40000;
  std::string bytes;
  for (int i = 0; i < kLines; ++i) bytes += "a line\r\n";
  Module module = Make(bytes);
  const std::u16string before = module.Text();
  for (std::int32_t i = 1; i <= kLines; ++i) {
    module.DeleteLines(i, 1);
    module.InsertLines(i, u"another");
  }
  EXPECT_EQ(module.CountOfLines(), kLines);
  EXPECT_EQ(module.Lines(kLines - 1, 5), u"another\r\nanother");
  EXPECT_TRUE(module.Undo());
  EXPECT_FALSE(module.CanUndo());
  EXPECT_EQ(module.Text(), before);
}

TEST_F(ModuleTextTest, ComposeKeepsTheBytesOfUnchangedLines) {
  // Two spellings of one character, a byte that cannot be decoded, mixed line ends, no final one, a hidden line.
  const std::string bytes = "Attribute VB_Name = \"M\"\nx \xE1\x41\r\nAttribute x.VB_X = 1\ny \x81\nz \xE1\x42\rlast";
  Module module = Make(bytes, &twoByte);
  EXPECT_EQ(module.Compose().bytes, bytes);

  const std::u16string first = module.Lines(1, 1);
  module.DeleteLines(1, 1);
  module.InsertLines(1, first);
  EXPECT_EQ(module.Compose().bytes, bytes) << "typed anew, but the same";

  module.DeleteLines(3, 1);
  module.InsertLines(3, u"new");
  const std::string expected = "Attribute VB_Name = \"M\"\nx \xE1\x41\r\nAttribute x.VB_X = 1\ny \x81\nnew\rlast";
  EXPECT_EQ(module.Compose().bytes, expected);
  module.MarkSaved(std::make_shared<SourceFile>(expected));
  EXPECT_EQ(module.Compose().bytes, expected);
  EXPECT_EQ(module.FileLine(2), 4);
  module.DeleteLines(4, 1);
  EXPECT_EQ(module.Compose().bytes, expected.substr(0, expected.size() - 4));
}

/// Its spelling is not the one that its text encodes to, and its line end is not that of its neighbours.
TEST_F(ModuleTextTest, ComposeKnowsAnUntouchedLineAmongNewOnes) {
  const std::string untouched = "\nx \xE1\x41\r\nAttribute x.VB_X = 1\n";
  Module module = Make("w" + untouched + "y\nz\n", &twoByte);
  for (const std::int32_t line : {2, 4}) {
    module.InsertLines(line, u"n1\r\nn2");
    module.InsertLines(line + 3, u"n3");
    const std::string composed = module.Compose().bytes;
    EXPECT_NE(composed.find("n2" + untouched + "n3\n"), composed.npos) << composed;
    module.MarkSaved(std::make_shared<SourceFile>(composed));
  }
}

TEST_F(ModuleTextTest, ComposeNamesACharacterThatThePageLacks) {
  Module module = Make("A\r\nB\r\n", &twoByte);
  module.InsertLines(2, u"ab\u00E9");
  EXPECT_EQ(Raised([&] { module.Compose(); }), "5 Line 2, column 3: code page two has no character \u00E9 (U+00E9)");
}

}  // namespace
}  // namespace quorvane::workbench

#include <gtest/gtest.h>

#include <random>

#include "support/Rows.h"
#include "workbench/text/Sieve.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::workbench {
namespace {

/// The lines of any bytes with their line ends, the plain way.
std::vector<std::string> SplitPlainly(const std::string& bytes) {
  std::vector<std::string> lines;
  std::string line;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    line += bytes[i];
    if (bytes[i] != '\n' && (bytes[i] != '\r' || (i + 1 < bytes.size() && bytes[i + 1] == '\n'))) continue;
    lines.push_back(std::exchange(line, ""));
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

/// Code lines joined by `|`, then hidden lines as {after:text}, then the name of the component.
std::string Describe(const SourceFile& file) {
  std::string text;
  for (std::size_t i = 0; i < file.Lines().size(); ++i) text += (i > 0 ? "|" : "") + std::string(file.LineBytes(i));
  for (const SourceFile::HiddenLine& hidden : file.Hidden()) {
    std::string line = file.Bytes().substr(hidden.begin, hidden.end - hidden.begin);
    line.erase(line.find_last_not_of("\r\n") + 1);
    text += " {" + std::to_string(hidden.after) + ":" + line + "}";
  }
  return text + (file.Name().empty() ? "" : " <" + file.Name() + ">");
}

/// Header, lines and hidden lines in their order are the file again, and each line stands where FileLine says.
void ExpectWhole(const SourceFile& file) {
  std::string rebuilt = file.Bytes().substr(0, file.CodeBegin());
  auto hidden = file.Hidden().begin();
  const auto takeHidden = [&](std::size_t after) {
    for (; hidden != file.Hidden().end() && static_cast<std::size_t>(hidden->after) == after; ++hidden)
      rebuilt += file.Bytes().substr(hidden->begin, hidden->end - hidden->begin);
  };
  const std::vector<std::string> physical = SplitPlainly(file.Bytes());
  takeHidden(0);
  for (std::size_t i = 0; i < file.Lines().size(); ++i) {
    const std::string line = std::string(file.LineBytes(i)) + std::string(file.LineEnd(i));
    rebuilt += line;
    takeHidden(i + 1);
    const auto at = static_cast<std::size_t>(file.FileLine(static_cast<std::int32_t>(i) + 1));
    EXPECT_EQ(file.CodeLine(static_cast<std::int32_t>(at)), static_cast<std::int32_t>(i) + 1);
    ASSERT_TRUE(at >= 1 && at <= physical.size()) << at;
    EXPECT_TRUE(physical[at - 1].ends_with(line)) << physical[at - 1] << " / " << line;
  }
  EXPECT_EQ(rebuilt, file.Bytes());
  std::size_t code = 0;
  for (std::size_t i = 0; i <= physical.size() + 1; ++i) code += file.CodeLine(static_cast<std::int32_t>(i)) != 0;
  EXPECT_EQ(code, file.Lines().size());
}

/// What a file tells before its lines are cut is what the lines then say.
void ExpectKnownBeforehand(const std::string& bytes) {
  const SourceFile cut(bytes);
  const std::vector<SourceFile::Line>& lines = cut.Lines();
  ASSERT_EQ(cut.CountOfLines(), static_cast<std::int32_t>(lines.size()));
  if (lines.empty()) return;
  const SourceFile whole(bytes);
  EXPECT_EQ(whole.LineAt(0), lines.front());
  EXPECT_EQ(whole.LineAt(lines.size() - 1), lines.back());
  EXPECT_EQ(whole.LineAt(lines.size() / 2), lines[lines.size() / 2]);
  EXPECT_EQ(whole.LineAt(lines.size() - 1), lines.back());
}

TEST(SourceFile, ShowsCodeAlone) {
  for (const char* table : {"Lines", "Header", "Hidden"}) {
    for (const test::Row& row : test::Rows("workbench/SourceFile.rows", table)) {
      SCOPED_TRACE(row.Where());
      const SourceFile file(row.Bytes(1));
      EXPECT_EQ(Describe(file), row.Bytes(2));
      ExpectWhole(file);
      ExpectKnownBeforehand(row.Bytes(1));
    }
  }
}

TEST(SourceFile, CutsAnyBytes) {
  static const std::vector<std::string> kPieces = {
      "\r", "\n", "\r\n", "x", " _", "Attribute A.B = 1", "' attribute", std::string(61, 'y'), std::string(1, '\0')};
  for (unsigned seed = 0; seed < 400; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::string bytes;
    for (auto n = random() % 60; n > 0; --n) bytes += kPieces[random() % kPieces.size()];
    const SourceFile file("x\n" + bytes);
    ExpectWhole(file);
    ExpectKnownBeforehand("x\n" + bytes);
    ExpectKnownBeforehand(bytes);
    EXPECT_EQ(file.Lines().size() + file.Hidden().size(), SplitPlainly(file.Bytes()).size());
  }
}

/// Line ends are counted block by block; these lie on both sides of every border.
TEST(SourceFile, CountsTheLinesOfLongFiles) {
  for (const std::string lineEnd : {"\n", "\r", "\r\n", "\n\r"}) {
    for (std::size_t before = 0; before < 130; ++before) {
      std::string bytes(before, 'x');
      const std::size_t ends = lineEnd == "\n\r" ? 2 : 1;
      for (int i = 0; i < 300; ++i) bytes += lineEnd + "y";
      EXPECT_EQ(SourceFile(bytes).CountOfLines(), 300 * static_cast<int>(ends) + 1) << before;
    }
    std::string longer;
    for (int i = 0; i < 60000; ++i) longer += lineEnd;
    ExpectKnownBeforehand(longer);
    ExpectKnownBeforehand(longer + "x");
  }
}

/// A file that a sieve keeps out is the same file to whoever looks at it, and is read again only then.
TEST(SourceFile, KeptOutByASieve) {
  const auto sieve = std::make_shared<const Sieve>(std::vector<std::string>{"Needle", "other"}, false);
  for (const test::Row& row : test::Rows("workbench/SourceFile.rows", "KeptOut")) {
    SCOPED_TRACE(row.Where());
    const std::string bytes = row.Bytes(1) + std::string(static_cast<std::size_t>(row.Number(3)), 'x');
    const bool keptOut = row.Bytes(2) == "out";
    int again = 0;
    const SourceFile file(std::string_view(bytes), sieve, [&] {
      ++again;
      return bytes;
    });
    EXPECT_EQ(file.Lacks(*sieve), keptOut);
    EXPECT_EQ(file.Lacks(Sieve({"%"}, false)), SourceFile(bytes).CountOfLines() > 0 && bytes.size() < 20000);
    EXPECT_EQ(again, keptOut);
    EXPECT_EQ(Describe(file), Describe(SourceFile(bytes)));
    EXPECT_EQ(file.CountOfLines(), SourceFile(bytes).CountOfLines());
    ExpectWhole(file);
    EXPECT_EQ(again, keptOut);
  }
}

}  // namespace
}  // namespace quorvane::workbench

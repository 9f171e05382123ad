#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/Seed.h"
#include "support/TempFolder.h"
#include "workbench/save/UnifiedDiff.h"

namespace quorvane::workbench {
namespace {

TEST(UnifiedDiff, ReadsAsOthersDo) {
  EXPECT_EQ(UnifiedDiff("a.bas", "1\n", "1\n"), "");
  EXPECT_EQ(UnifiedDiff("a.bas", "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n", "1\r\n2\r\n3\r\n4\r\nfive\r\n6\r\n"),
            "--- a.bas\n+++ a.bas\n@@ -2,5 +2,5 @@\n 2\r\n 3\r\n 4\r\n-5\r\n+five\r\n 6\r\n");
  EXPECT_EQ(UnifiedDiff("a.bas", "1\n2", "1\n2\n"),
            "--- a.bas\n+++ a.bas\n@@ -1,2 +1,2 @@\n 1\n-2\n\\ No newline at end of file\n+2\n");
  EXPECT_EQ(UnifiedDiff("a.bas", "", "1\n"), "--- a.bas\n+++ a.bas\n@@ -0,0 +1 @@\n+1\n");
  // Six lines between two changes belong to both; seven part them.
  EXPECT_EQ(UnifiedDiff("\"x\ty\"", "a\n1\n2\n3\n4\n5\n6\nb\n1\n2\n3\n4\n5\n6\n7\nc\n",
                        "A\n1\n2\n3\n4\n5\n6\nB\n1\n2\n3\n4\n5\n6\n7\n"),
            "--- \"\\\"x\\ty\\\"\"\n+++ \"\\\"x\\ty\\\"\"\n@@ -1,11 +1,11 @@\n-a\n+A\n 1\n 2\n 3\n 4\n 5\n 6\n-b\n+B\n "
            "1\n 2\n 3\n"
            "@@ -13,4 +13,3 @@\n 5\n 6\n 7\n-c\n");
}

std::string RandomText(std::mt19937& random) {
  static const std::vector<std::string> kLines = {
      "", "x", "-y", "+++ z", "\\ w", "\xFF\xFE", std::string("a\0b", 3), "lone\rcr"};
  static const std::vector<std::string> kEnds = {"\r\n", "\n", "\n", "\r"};
  std::string text;
  for (std::size_t i = random() % 30; i > 0; --i)
    text += kLines[random() % kLines.size()] + kEnds[random() % kEnds.size()];
  if (random() % 3 == 0) text += "end";
  return text;
}

std::string Edited(std::string text, std::mt19937& random) {
  for (std::size_t i = random() % 5; i > 0; --i) {
    const std::size_t at = random() % (text.size() + 1);
    if (random() % 2 == 0) {
      text.insert(at, random() % 2 == 0 ? "new\r\n" : "n");
    } else {
      text.erase(at, random() % 9);
    }
  }
  return text;
}

TEST(UnifiedDiff, PatchTakesItAndTheCountsAgree) {
  std::mt19937 random(test::NewSeed());
  const test::TempFolder folder;
  std::string patch;
  std::vector<std::string> names, results;
  const std::vector<std::string> odd = {"plain",       "with blank", "tab\ttab",   "quote\"",
                                        "back\\slash", "\xC3\xA9",   "line\nbreak"};
  for (int i = 0; i < 200; ++i) {
    const std::string name = "f" + std::to_string(i) + odd[static_cast<std::size_t>(i) % odd.size()];
    const std::string before = RandomText(random), after = i % 9 == 0 ? RandomText(random) : Edited(before, random);
    const std::string diff = UnifiedDiff(name, before, after);
    const LineCounts counts = CountChangedLines(before, after);
    folder.Write(name, before);
    patch += diff;
    names.push_back(name);
    results.push_back(after);
    LineCounts seen{-1, -1};  // the header has one of each
    for (std::size_t at = 0; at < diff.size(); at = diff.find('\n', at) + 1) {
      if (diff[at] == '+') ++seen.added;
      if (diff[at] == '-') ++seen.removed;
    }
    EXPECT_EQ(counts, diff.empty() ? LineCounts{} : seen);
  }
  folder.Write("all.patch", patch);
  const std::string command = "cd '" + folder.Path().string() + "' && patch -p0 --binary --silent < all.patch";
  ASSERT_EQ(std::system(command.c_str()), 0);
  for (std::size_t i = 0; i < names.size(); ++i) {
    ASSERT_EQ(folder.Read(names[i]), results[i]) << names[i];
  }
}

}  // namespace
}  // namespace quorvane::workbench

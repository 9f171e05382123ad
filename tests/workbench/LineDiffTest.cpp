#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <ostream>

#include "support/Rows.h"
#include "support/Seed.h"
#include "workbench/text/LineDiff.h"

namespace quorvane::workbench {

void PrintTo(const DiffHunk& hunk, std::ostream* out) {
  *out << '[' << hunk.beforeBegin << ',' << hunk.beforeEnd << ")->[" << hunk.afterBegin << ',' << hunk.afterEnd << ')';
}

namespace {

using Lines = std::vector<std::string_view>;

/// One letter a line.
Lines Letters(std::string_view text) {
  Lines lines;
  for (std::size_t i = 0; i < text.size(); ++i) lines.push_back(text.substr(i, 1));
  return lines;
}

std::size_t LongestCommon(const Lines& a, const Lines& b) {
  std::vector<std::size_t> row(b.size() + 1, 0);
  for (const std::string_view line : a) {
    std::size_t diagonal = 0;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t above = row[j + 1];
      row[j + 1] = line == b[j] ? diagonal + 1 : std::max(above, row[j]);
      diagonal = above;
    }
  }
  return row.back();
}

/// True when a line occurs once on each side, between what both begin with and what both end with.
bool HasAnchor(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty() && a.front() == b.front()) a.remove_prefix(1), b.remove_prefix(1);
  while (!a.empty() && !b.empty() && a.back() == b.back()) a.remove_suffix(1), b.remove_suffix(1);
  return std::any_of(a.begin(), a.end(), [&](char c) {
    return std::count(a.begin(), a.end(), c) == 1 && std::count(b.begin(), b.end(), c) == 1;
  });
}

/// How many lines the hunks leave alone; fails the test when what they leave alone differs or they touch.
std::size_t CheckedEqualLines(const Lines& before, const Lines& after, const std::vector<DiffHunk>& hunks) {
  std::size_t b = 0, a = 0, equal = 0;
  const auto pairUpTo = [&](std::size_t end) {
    for (; b < end; ++b, ++a, ++equal) {
      if (a >= after.size() || before[b] != after[a]) {
        ADD_FAILURE() << "line " << b << " is not line " << a;
        return;
      }
    }
  };
  for (std::size_t i = 0; i < hunks.size(); ++i) {
    const auto begin = static_cast<std::size_t>(hunks[i].beforeBegin);
    EXPECT_TRUE(i == 0 || begin > b) << "hunk " << i << " touches the one before it";
    EXPECT_FALSE(hunks[i].beforeBegin == hunks[i].beforeEnd && hunks[i].afterBegin == hunks[i].afterEnd);
    pairUpTo(begin);
    EXPECT_EQ(a, static_cast<std::size_t>(hunks[i].afterBegin));
    b = static_cast<std::size_t>(hunks[i].beforeEnd);
    a = static_cast<std::size_t>(hunks[i].afterEnd);
  }
  pairUpTo(before.size());
  EXPECT_EQ(a, after.size());
  return equal;
}

TEST(LineDiff, FindsTheHunks) {
  for (const test::Row& row : test::Rows("workbench/LineDiff.rows", "Hunks")) {
    std::string hunks;
    for (const DiffHunk& hunk : DiffLines(Letters(row.Bytes(0)), Letters(row.Bytes(1)))) {
      hunks += (hunks.empty() ? "" : " ") + std::to_string(hunk.beforeBegin) + "-" + std::to_string(hunk.beforeEnd) +
               ">" + std::to_string(hunk.afterBegin) + "-" + std::to_string(hunk.afterEnd);
    }
    EXPECT_EQ(hunks, row.Bytes(2)) << row.Where();
  }
}

TEST(LineDiff, AgreesWithTheLongestCommonSubsequence) {
  std::mt19937 random(test::NewSeed());
  const auto below = [&](std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(random); };
  for (int round = 0; round < 3000; ++round) {
    const std::size_t alphabet = 1 + below(8);
    std::string before(below(24), 'a');
    for (char& c : before) c = static_cast<char>('a' + below(alphabet));
    std::string after = before;
    for (std::size_t edits = below(8); edits > 0; --edits) {
      const char c = static_cast<char>('a' + below(alphabet + 2));
      const std::size_t at = below(after.size() + 1);
      if (at < after.size() && below(2) == 0) {
        after.erase(at, 1);
      } else {
        after.insert(at, 1, c);
      }
    }
    const bool exact = !HasAnchor(before, after);
    const Lines b = Letters(before), a = Letters(after);
    const std::size_t equal = CheckedEqualLines(b, a, DiffLines(b, a));
    const std::size_t longest = LongestCommon(b, a);
    EXPECT_LE(equal, longest);
    EXPECT_TRUE(!exact || equal == longest) << equal << " of " << longest;
    if (HasFailure()) FAIL() << before << " -> " << after;
  }
}

/// What a replacement within lines leaves: some lines have a text that was nowhere before, and theirs is nowhere after.
/// The lines that stay occur many times, so that a shift of them would be easy.
TEST(LineDiff, NewTextsInPlaceAreTheHunks) {
  std::mt19937 random(test::NewSeed());
  for (int round = 0; round < 3000 && !HasFailure(); ++round) {
    std::string before(random() % 60, 'a');
    std::string after = before;
    std::vector<DiffHunk> hunks;
    for (std::size_t i = 0; i < before.size(); ++i) {
      const bool changes = random() % 4 == 0;
      before[i] = static_cast<char>((changes ? 'n' : 'a') + random() % 5);
      after[i] = changes ? static_cast<char>('A' + random() % 5) : before[i];
      if (!changes) continue;
      const auto at = static_cast<std::int32_t>(i);
      if (hunks.empty() || hunks.back().beforeEnd != at) hunks.push_back({at, at, at, at});
      hunks.back().beforeEnd = hunks.back().afterEnd = at + 1;
    }
    EXPECT_EQ(DiffLines(Letters(before), Letters(after)), hunks) << before << " -> " << after;
  }
}

TEST(LineDiff, LinesThatOccurOnceKeepEveryLineThatStays) {
  std::vector<std::string> text;
  for (int i = 0; i < 2000; ++i) text.push_back("line " + std::to_string(i));
  const Lines before(text.begin(), text.end());
  Lines after = before;
  for (std::size_t i = 0; i < after.size(); i += 7) after[i] = "changed";
  after.erase(after.begin() + 1000, after.begin() + 1010);
  after.insert(after.begin() + 300, 25, "new");
  EXPECT_EQ(CheckedEqualLines(before, after, DiffLines(before, after)), LongestCommon(before, after));
}

TEST(LineDiff, LargeBlocksStayCheap) {
  std::vector<std::string> text;
  for (int i = 0; i < 80000; ++i) text.push_back("    value(" + std::to_string(i) + ") = value");
  const Lines some(text.begin(), text.begin() + 40000), others(text.begin() + 40000, text.end());
  const Lines backwards(some.rbegin(), some.rend());
  std::mt19937 random(1);
  Lines noise, otherNoise, sparse, sparseChanged;
  for (std::size_t i = 0; i < 40000; ++i) {
    noise.push_back(some[random() % 10]);
    otherNoise.push_back(some[random() % 10]);
    sparse.push_back(some[i % 3]);
  }
  sparseChanged = sparse;
  for (std::size_t i = 100; i < 40000; i += 30) sparseChanged[i] = "changed";
  sparseChanged.insert(sparseChanged.begin() + 20000, "inserted");

  [[maybe_unused]] const std::clock_t start = std::clock();
  EXPECT_EQ(DiffLines(some, others), (std::vector<DiffHunk>{{0, 40000, 0, 40000}}));
  EXPECT_EQ(CheckedEqualLines(some, backwards, DiffLines(some, backwards)), 1u);
  CheckedEqualLines(noise, otherNoise, DiffLines(noise, otherNoise));
  EXPECT_EQ(CheckedEqualLines(sparse, sparseChanged, DiffLines(sparse, sparseChanged)), 40000u - 1330u);
  EXPECT_EQ(CheckedEqualLines(sparseChanged, sparse, DiffLines(sparseChanged, sparse)), 40000u - 1330u);
#ifndef _WIN32  // whose clock goes on while others have the processor
  EXPECT_LT(std::clock() - start, 3 * CLOCKS_PER_SEC) << "too short for each line against each other";
#endif

  Lines everyOther = otherNoise;
  for (std::size_t i = 0; i < everyOther.size(); i += 2) everyOther[i] = noise[i];
  EXPECT_GE(CheckedEqualLines(noise, everyOther, DiffLines(noise, everyOther)), 20000u);
}

}  // namespace
}  // namespace quorvane::workbench

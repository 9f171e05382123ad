#include "workbench/text/LineDiff.h"

#include <algorithm>
#include <bitset>
#include <cstddef>
#include <optional>
#include <span>
#include <unordered_map>
#include <unordered_set>

#include "base/CommonEnds.h"

// Lines become numbers once, equal lines the same number, and all that follows works on the numbers. A block of lines
// is trimmed of what its two sides have in common at both ends, then cut at its anchors: the lines that occur exactly
// once on each side, as many of them as ascend on both. Anchors keep procedures together where a shortest edit would
// slide over blank lines and End Ifs, and make the cost that of sorting. A block without anchors is compared exactly
// as long as few of its lines differ; a large one that has next to nothing in common is one change, line by line where
// both sides are of one length. Before all that stands a short way: where no changed line occurs on the other side at
// all, which is how a replacement within lines leaves a text, the lines that stay can only be paired place by place.

namespace quorvane::workbench {

namespace {

using Index = std::int32_t;

/// Differences up to which a block without anchors is compared exactly; the cost grows with the square.
constexpr Index kExactDifferences = 2048;
/// Cuts within cuts, before a block is taken as it is.
constexpr int kDeepest = 48;

struct Block {
  Index beforeBegin, beforeEnd, afterBegin, afterEnd;
  int depth;
};

struct Pair {
  Index before, after;
};

/// The pairs of one longest common subsequence, in descending order, or nothing when more than kExactDifferences lines
/// differ. Walks diagonals by rising number of differences, keeping the furthest point reached on each.
std::optional<std::vector<Pair>> CommonSubsequence(std::span<const Index> before, std::span<const Index> after) {
  const Index rows = static_cast<Index>(before.size()), columns = static_cast<Index>(after.size());
  const Index limit = std::min(rows + columns, kExactDifferences);
  std::vector<Index> reach(static_cast<std::size_t>(2 * limit + 3), 0);
  const auto at = [&](Index diagonal) -> Index& { return reach[static_cast<std::size_t>(diagonal + limit + 1)]; };
  std::vector<std::vector<Index>> history;  // of each round, its diagonals -d, -d + 2 … d

  const auto comesFromAbove = [](Index diagonal, Index d, Index left, Index right) {
    return diagonal == -d || (diagonal != d && left < right);
  };
  Index differences = -1;
  for (Index d = 0; d <= limit && differences < 0; ++d) {
    std::vector<Index>& round = history.emplace_back();
    for (Index diagonal = -d; diagonal <= d; diagonal += 2) {
      const Index left = at(diagonal - 1), right = at(diagonal + 1);
      Index row = d == 0 ? 0 : comesFromAbove(diagonal, d, left, right) ? right : left + 1;
      while (row < rows && row - diagonal < columns &&
             before[static_cast<std::size_t>(row)] == after[static_cast<std::size_t>(row - diagonal)]) {
        ++row;
      }
      at(diagonal) = row;
      round.push_back(row);
      if (row >= rows && row - diagonal >= columns) differences = d;
    }
  }
  if (differences < 0) return std::nullopt;

  std::vector<Pair> pairs;
  Index row = rows, column = columns;
  for (Index d = differences; d > 0; --d) {
    const Index diagonal = row - column;
    const std::vector<Index>& round = history[static_cast<std::size_t>(d - 1)];
    const auto previous = [&](Index k) { return round[static_cast<std::size_t>((k + d - 1) / 2)]; };
    const bool above = diagonal == -d || (diagonal != d && previous(diagonal - 1) < previous(diagonal + 1));
    const Index fromDiagonal = above ? diagonal + 1 : diagonal - 1;
    const Index fromRow = previous(fromDiagonal), start = above ? fromRow : fromRow + 1;
    while (row > start) pairs.push_back({--row, --column});
    row = fromRow;
    column = fromRow - fromDiagonal;
  }
  while (row > 0) pairs.push_back({--row, --column});
  return pairs;
}

/// The longest run of `anchors`, which ascend in `before`, that ascends in `after` too.
std::vector<Pair> LongestAscending(const std::vector<Pair>& anchors) {
  std::vector<std::size_t> piles;  // the anchor on top of each pile
  std::vector<std::size_t> below(anchors.size());
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  for (std::size_t i = 0; i < anchors.size(); ++i) {
    const auto pile = std::lower_bound(piles.begin(), piles.end(), anchors[i].after,
                                       [&](std::size_t top, Index after) { return anchors[top].after < after; });
    below[i] = pile == piles.begin() ? kNone : *(pile - 1);
    if (pile == piles.end()) {
      piles.push_back(i);
    } else {
      *pile = i;
    }
  }
  std::vector<Pair> run;
  for (std::size_t i = piles.empty() ? kNone : piles.back(); i != kNone; i = below[i]) run.push_back(anchors[i]);
  std::reverse(run.begin(), run.end());
  return run;
}

/// Lines to be looked for among many others. Most of those are told apart by a few of their bytes.
class FewLines {
 public:
  void Add(std::string_view line) {
    lines_.push_back(line);
    sketch_[Sketch(line)] = true;
  }
  bool Holds(std::string_view line) {
    if (!sketch_[Sketch(line)]) return false;
    if (found_.empty()) found_.insert(lines_.begin(), lines_.end());
    return found_.contains(line);
  }

 private:
  static constexpr std::size_t kSketches = 8192;

  static std::size_t Sketch(std::string_view line) {
    if (line.empty()) return 0;
    const auto byte = [line](std::size_t at) { return static_cast<std::size_t>(static_cast<unsigned char>(line[at])); };
    return (line.size() * 0x9E5 + byte(line.size() / 2) * 0x83 + byte(line.size() - 1) * 0x1F + byte(line.size() / 3)) %
           kSketches;
  }

  std::vector<std::string_view> lines_;
  std::bitset<kSketches> sketch_;
  std::unordered_set<std::string_view> found_;  ///< lines_, once somebody asks
};

/// As LinePairing::Run, where no line that changed occurs on the other side: then both sides have the same lines in the
/// same order but for the changed ones, and no other pairing has as many pairs. No value where that does not hold.
std::optional<std::vector<Index>> PairInPlace(std::span<const std::string_view> before,
                                              std::span<const std::string_view> after) {
  if (before.size() != after.size()) return std::nullopt;
  std::vector<Index> partner(before.size());
  FewLines gone, come;
  for (std::size_t i = 0; i < before.size(); ++i) {
    const bool stays = before[i] == after[i];
    partner[i] = stays ? static_cast<Index>(i) : -1;
    if (stays) continue;
    gone.Add(before[i]);
    come.Add(after[i]);
  }
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (come.Holds(before[i]) || gone.Holds(after[i])) return std::nullopt;
  }
  return partner;
}

class LinePairing {
 public:
  LinePairing(std::span<const std::string_view> before, std::span<const std::string_view> after)
      : partner_(before.size(), -1) {
    std::unordered_map<std::string_view, Index> numbers;
    numbers.reserve(before.size() + after.size());
    const auto number = [&](std::span<const std::string_view> lines) {
      std::vector<Index> ids;
      ids.reserve(lines.size());
      for (const std::string_view line : lines) {
        ids.push_back(numbers.try_emplace(line, static_cast<Index>(numbers.size())).first->second);
      }
      return ids;
    };
    before_ = number(before);
    after_ = number(after);
    seen_.resize(numbers.size());
  }

  /// For each line before, the equal line after that it is paired with, or -1; ascending.
  std::vector<Index> Run() {
    blocks_.push_back({0, static_cast<Index>(before_.size()), 0, static_cast<Index>(after_.size()), 0});
    while (!blocks_.empty()) {
      Block block = blocks_.back();
      blocks_.pop_back();
      Trim(block);
      if (block.beforeBegin == block.beforeEnd || block.afterBegin == block.afterEnd) continue;
      Count(block);
      if (block.depth == kDeepest || !Cut(block)) Compare(block);
      Forget(block);
    }
    return std::move(partner_);
  }

 private:
  /// How often a line occurs in the block at hand, and where it did so last.
  struct Seen {
    Index before = 0, after = 0, lastAfter = 0;
  };

  Index Before(Index i) const { return before_[static_cast<std::size_t>(i)]; }
  Index After(Index i) const { return after_[static_cast<std::size_t>(i)]; }
  Seen& Of(Index id) { return seen_[static_cast<std::size_t>(id)]; }
  void Join(Index before, Index after) { partner_[static_cast<std::size_t>(before)] = after; }

  void Trim(Block& block) {
    while (block.beforeBegin < block.beforeEnd && block.afterBegin < block.afterEnd &&
           Before(block.beforeBegin) == After(block.afterBegin)) {
      Join(block.beforeBegin++, block.afterBegin++);
    }
    while (block.beforeBegin < block.beforeEnd && block.afterBegin < block.afterEnd &&
           Before(block.beforeEnd - 1) == After(block.afterEnd - 1)) {
      Join(--block.beforeEnd, --block.afterEnd);
    }
  }

  void Count(const Block& block) {
    for (Index i = block.beforeBegin; i < block.beforeEnd; ++i) ++Of(Before(i)).before;
    for (Index i = block.afterBegin; i < block.afterEnd; ++i) {
      Seen& seen = Of(After(i));
      ++seen.after;
      seen.lastAfter = i;
    }
  }

  void Forget(const Block& block) {
    for (Index i = block.beforeBegin; i < block.beforeEnd; ++i) Of(Before(i)) = {};
    for (Index i = block.afterBegin; i < block.afterEnd; ++i) Of(After(i)) = {};
  }

  /// Pairs the anchors and leaves the blocks between them for later; false when there are none.
  bool Cut(const Block& block) {
    std::vector<Pair> anchors;
    for (Index i = block.beforeBegin; i < block.beforeEnd; ++i) {
      const Seen& seen = Of(Before(i));
      if (seen.before == 1 && seen.after == 1) anchors.push_back({i, seen.lastAfter});
    }
    if (anchors.empty()) return false;
    Pair from{block.beforeBegin, block.afterBegin};
    for (const Pair& anchor : LongestAscending(anchors)) {
      Join(anchor.before, anchor.after);
      blocks_.push_back({from.before, anchor.before, from.after, anchor.after, block.depth + 1});
      from = {anchor.before + 1, anchor.after + 1};
    }
    blocks_.push_back({from.before, block.beforeEnd, from.after, block.afterEnd, block.depth + 1});
    return true;
  }

  /// Lines that the other side lacks have no part in any common subsequence and are left out.
  void Compare(const Block& block) {
    std::vector<Index> before, after, beforeAt, afterAt;
    for (Index i = block.beforeBegin; i < block.beforeEnd; ++i) {
      if (Of(Before(i)).after == 0) continue;
      before.push_back(Before(i));
      beforeAt.push_back(i);
    }
    for (Index i = block.afterBegin; i < block.afterEnd; ++i) {
      if (Of(After(i)).before == 0) continue;
      after.push_back(After(i));
      afterAt.push_back(i);
    }
    if (const auto pairs = CommonSubsequence(before, after)) {
      for (const Pair& pair : *pairs) {
        Join(beforeAt[static_cast<std::size_t>(pair.before)], afterAt[static_cast<std::size_t>(pair.after)]);
      }
    } else if (block.beforeEnd - block.beforeBegin == block.afterEnd - block.afterBegin) {
      for (Index i = 0; i < block.beforeEnd - block.beforeBegin; ++i) {
        if (Before(block.beforeBegin + i) == After(block.afterBegin + i)) {
          Join(block.beforeBegin + i, block.afterBegin + i);
        }
      }
    }
  }

  std::vector<Index> before_, after_;
  std::vector<Seen> seen_;  ///< invariant: all zero between two blocks
  std::vector<Index> partner_;
  std::vector<Block> blocks_;
};

}  // namespace

std::vector<DiffHunk> DiffLines(const std::vector<std::string_view>& before,
                                const std::vector<std::string_view>& after) {
  const auto [head, tail] = FindCommonEnds(before, after);
  const auto middle = [head = head, tail = tail](const std::vector<std::string_view>& lines) {
    return std::span<const std::string_view>(lines).subspan(head, lines.size() - head - tail);
  };
  const auto inPlace = PairInPlace(middle(before), middle(after));
  const std::vector<Index> partner = inPlace ? *inPlace : LinePairing(middle(before), middle(after)).Run();

  std::vector<DiffHunk> hunks;
  const Index offset = static_cast<Index>(head);
  DiffHunk hunk{offset, offset, offset, offset};  // grows until a pair of equal lines closes it
  const auto close = [&](Index nextBefore, Index nextAfter) {
    hunk.beforeEnd = nextBefore;
    hunk.afterEnd = nextAfter;
    if (hunk.beforeBegin != hunk.beforeEnd || hunk.afterBegin != hunk.afterEnd) hunks.push_back(hunk);
    hunk.beforeBegin = nextBefore + 1;
    hunk.afterBegin = nextAfter + 1;
  };
  for (std::size_t i = 0; i < partner.size(); ++i) {
    if (partner[i] >= 0) close(offset + static_cast<Index>(i), offset + partner[i]);
  }
  close(static_cast<Index>(before.size() - tail), static_cast<Index>(after.size() - tail));
  return hunks;
}

}  // namespace quorvane::workbench

#include "workbench/text/DeclarationMatch.h"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <utility>

// Declarations are matched in passes, from the surest evidence to the weakest, and each pass only sees what the ones
// before it left over: the same member on a line that did not change; the same name in the same change; the same name
// cut and pasted elsewhere; and only then another name, of the same kind and in the same change, which is a rename. A
// new name in one pass can therefore never be one that an older member still bears.

namespace quorvane::workbench {

namespace {

class DeclarationMatch {
 public:
  DeclarationMatch(const std::vector<MemberDeclaration>& before, const std::vector<MemberDeclaration>& after,
                   const LineMap& map)
      : before_(before), after_(after), map_(map), match_(before.size(), -1), taken_(after.size(), false) {
    for (const MemberDeclaration& one : before_) {
      beforeSides_.push_back({&one, FoldName(one.name), map.HunkBefore(one.first, one.last), {}, 0, {}});
      SetRow(beforeSides_, &DiffHunk::beforeBegin);
    }
    for (const MemberDeclaration& one : after_) {
      afterSides_.push_back({&one, FoldName(one.name), map.HunkAfter(one.first, one.last), {}, 0, {}});
      SetRow(afterSides_, &DiffHunk::afterBegin);
      for (std::int32_t line = one.first; line <= one.last; ++line) {
        afterOnLine_.emplace(line, afterSides_.size() - 1);
      }
    }
  }

  std::vector<std::int32_t> Run() {
    const auto kind = [](const Side& side) { return std::to_string(static_cast<int>(side.declaration->kind)) + ' '; };
    const auto hunk = [](const Side& side) { return std::to_string(side.hunk) + ' '; };
    ByUnchangedLine(true);
    ByKey(true, [&](const Side& side) { return hunk(side) + kind(side) + side.name; });
    ByKey(false, [&](const Side& side) { return kind(side) + side.name; });
    ByKey(true, [&](const Side& side) { return hunk(side) + side.name; });
    ByKey(false, [&](const Side& side) { return side.name; });
    ByUnchangedLine(false);
    ByKey(true, [&](const Side& side) { return side.row.empty() ? side.row : hunk(side) + kind(side) + side.row; });
    ByKey(true, [&](const Side& side) { return hunk(side) + kind(side) + side.declaration->rest; });
    FindNeighbours();
    ByKey(true, [&](const Side& side) { return side.neighbour + kind(side) + side.declaration->rest; });
    ByKey(true, [&](const Side& side) { return hunk(side) + kind(side); });
    return std::move(match_);
  }

 private:
  struct Side {
    const MemberDeclaration* declaration;
    std::string name;   ///< folded
    std::int32_t hunk;  ///< -1: no line of it changed
    /// Its place in a hunk with as many lines before as after: line and number within the line. Empty elsewhere.
    std::string row;
    std::int32_t ordinal = 0;  ///< among the declarations that begin on its line
    std::string neighbour;     ///< the new number of the nearest matched declaration above
  };

  void SetRow(std::vector<Side>& sides, std::int32_t DiffHunk::*begin) {
    Side& side = sides.back();
    if (sides.size() > 1) {
      const Side& previous = sides[sides.size() - 2];
      if (previous.declaration->first == side.declaration->first) side.ordinal = previous.ordinal + 1;
    }
    if (side.hunk < 0) return;
    const DiffHunk& hunk = map_.Hunk(side.hunk);
    if (hunk.beforeEnd - hunk.beforeBegin != hunk.afterEnd - hunk.afterBegin) return;
    side.row = std::to_string(side.declaration->first - hunk.*begin) + ' ' + std::to_string(side.ordinal);
  }

  void Match(std::size_t before, std::size_t after) {
    match_[before] = static_cast<std::int32_t>(after);
    taken_[after] = true;
  }

  /// Blank lines that pair up oddly can part a renamed header from itself; the members around it still tell its place.
  void FindNeighbours() {
    std::string nearest;
    for (std::size_t i = 0; i < beforeSides_.size(); ++i) {
      beforeSides_[i].neighbour = nearest;
      if (match_[i] >= 0) nearest = std::to_string(match_[i]) + ' ';
    }
    nearest.clear();
    for (std::size_t i = 0; i < afterSides_.size(); ++i) {
      afterSides_[i].neighbour = nearest;
      if (taken_[i]) nearest = std::to_string(i) + ' ';
    }
  }

  /// A declaration keeps its member, or with another name its kind, when one of its lines stayed.
  void ByUnchangedLine(bool sameName) {
    for (std::size_t i = 0; i < beforeSides_.size(); ++i) {
      const Side& side = beforeSides_[i];
      for (std::int32_t line = side.declaration->first; line <= side.declaration->last && match_[i] < 0; ++line) {
        const auto [begin, end] = afterOnLine_.equal_range(map_.Partner(line));
        for (auto it = begin; it != end && match_[i] < 0; ++it) {
          const Side& other = afterSides_[it->second];
          if (taken_[it->second] || other.declaration->kind != side.declaration->kind) continue;
          if (!sameName || other.name == side.name) Match(i, it->second);
        }
      }
    }
  }

  /// Matches what is left over and has the same key. With `inHunk` only changed declarations take part, and they pair
  /// in order; otherwise there must be as many before as after, as a single one is that moved.
  void ByKey(bool inHunk, const std::function<std::string(const Side&)>& keyOf) {
    std::map<std::string, std::pair<std::vector<std::size_t>, std::vector<std::size_t>>> groups;
    for (std::size_t i = 0; i < beforeSides_.size(); ++i) {
      if (match_[i] < 0 && (!inHunk || beforeSides_[i].hunk >= 0)) groups[keyOf(beforeSides_[i])].first.push_back(i);
    }
    if (groups.empty()) return;
    for (std::size_t i = 0; i < afterSides_.size(); ++i) {
      if (!taken_[i] && (!inHunk || afterSides_[i].hunk >= 0)) groups[keyOf(afterSides_[i])].second.push_back(i);
    }
    for (const auto& [key, group] : groups) {
      const auto& [olds, news] = group;
      if (key.empty() || (!inHunk && olds.size() != news.size())) continue;
      for (std::size_t i = 0; i < olds.size() && i < news.size(); ++i) Match(olds[i], news[i]);
    }
  }

  const std::vector<MemberDeclaration>& before_;
  const std::vector<MemberDeclaration>& after_;
  const LineMap& map_;
  std::vector<Side> beforeSides_, afterSides_;
  std::multimap<std::int32_t, std::size_t> afterOnLine_;
  std::vector<std::int32_t> match_;
  std::vector<bool> taken_;
};

}  // namespace

std::vector<std::int32_t> MatchDeclarations(const std::vector<MemberDeclaration>& before,
                                            const std::vector<MemberDeclaration>& after, const LineMap& map) {
  return DeclarationMatch(before, after, map).Run();
}

}  // namespace quorvane::workbench

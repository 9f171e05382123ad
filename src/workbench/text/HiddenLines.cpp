#include "workbench/text/HiddenLines.h"

#include <algorithm>
#include <map>

#include "workbench/text/DeclarationMatch.h"
#include "workbench/text/LineMap.h"
#include "workbench/text/MemberDeclaration.h"
#include "workbench/text/SourceHeader.h"

// A hidden line belongs to the member that it names and goes wherever the declaration of that member goes. One whose
// member is not declared where it stands belongs to the line of code above it and goes where that line goes.

namespace quorvane::workbench {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

std::string_view WithoutLineEnd(std::string_view line) {
  while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.remove_suffix(1);
  return line;
}

/// The member that an Attribute line speaks of, a view into it, or nothing when it names none.
std::string_view MemberName(std::string_view line) {
  AttributeLine attribute;
  if (!ReadAttributeLine(line, attribute)) return {};
  const std::size_t dot = FoldName(attribute.name).find(".vb_");
  return dot == std::string::npos ? std::string_view() : attribute.name.substr(0, dot);
}

class HiddenLinePlaces {
 public:
  HiddenLinePlaces(const SourceFile& baseline, const std::vector<std::string_view>& canonical,
                   const std::vector<std::string_view>& lines, const std::vector<DiffHunk>& hunks)
      : baseline_(baseline),
        oldLines_(canonical),
        lines_(lines),
        map_(hunks, canonical.size(), lines.size()),
        before_(ScanDeclarations(canonical)),
        after_(ScanDeclarations(lines)),
        match_(MatchDeclarations(before_, after_, map_)) {
    for (std::size_t i = 0; i < before_.size(); ++i) declared_.emplace(FoldName(before_[i].name), i);
    AddSpellingsOfFile();
  }

  HiddenPlacement Run() {
    HiddenPlacement placement;
    for (std::size_t i = 0; i < baseline_.Hidden().size(); ++i) {
      PlacedHiddenLine place{i, 0, {}};
      if (Find(place)) {
        placement.placed.push_back(std::move(place));
      } else {
        placement.dropped.push_back(i);
      }
    }
    std::stable_sort(placement.placed.begin(), placement.placed.end(),
                     [](const auto& a, const auto& b) { return a.after < b.after; });
    return placement;
  }

 private:
  /// Hidden lines name their members in the spelling of the file.
  void AddSpellingsOfFile() {
    std::vector<std::string_view> file;
    file.reserve(oldLines_.size());
    for (std::size_t i = 0; i < oldLines_.size(); ++i) file.push_back(baseline_.LineBytes(i));
    if (file == oldLines_) return;
    const std::vector<MemberDeclaration> spelled = ScanDeclarations(file);
    for (std::size_t i = 0; i < spelled.size() && spelled.size() == before_.size(); ++i) {
      if (spelled[i].name != before_[i].name) declared_.emplace(FoldName(spelled[i].name), i);
    }
  }

  bool Find(PlacedHiddenLine& place) {
    const SourceFile::HiddenLine& hidden = baseline_.Hidden()[place.index];
    if (hidden.after == 0) return true;
    const std::string_view text =
        WithoutLineEnd(std::string_view(baseline_.Bytes()).substr(hidden.begin, hidden.end - hidden.begin));
    const std::string_view name = MemberName(text);
    const std::size_t owner = Owner(name, hidden.after - 1);
    const std::int32_t line = owner == kNone ? LineOf(hidden.after - 1) : LineOf(owner, hidden.after - 1);
    if (line < 0) return false;
    place.after = PlaceAt(line);
    if (owner == kNone || match_[owner] < 0) return true;
    const MemberDeclaration& now = after_[static_cast<std::size_t>(match_[owner])];
    if (now.name == before_[owner].name) return true;
    const auto at = static_cast<std::size_t>(name.data() - text.data());
    place.renamed = std::string(text.substr(0, at)) + now.name + std::string(text.substr(at + name.size()));
    return true;
  }

  /// The declaration of `name` in the statement of `line`, else the nearest one above, else the first one below.
  std::size_t Owner(std::string_view name, std::int32_t line) const {
    std::size_t owner = kNone;
    if (name.empty()) return owner;
    const auto [begin, end] = declared_.equal_range(FoldName(name));
    for (auto it = begin; it != end; ++it) {
      if (owner == kNone || before_[it->second].first <= line) owner = it->second;
    }
    return owner;
  }

  /// The 0-based line of code now that a hidden line of the member `owner`, after `line`, stands after; -1: gone.
  std::int32_t LineOf(std::size_t owner, std::int32_t line) {
    const MemberDeclaration& was = before_[owner];
    if (match_[owner] < 0) return map_.HunkBefore(was.first, was.last) < 0 ? LineOf(line) : -1;
    const std::int32_t last = after_[static_cast<std::size_t>(match_[owner])].last;
    if (line == was.last) return last;
    const std::int32_t follower = LineOf(line);
    return follower < 0 ? last : follower;
  }

  /// The line that `line` became: itself, itself at the one place it was moved to, or what it was rewritten to.
  std::int32_t LineOf(std::int32_t line) {
    if (map_.Partner(line) >= 0) return map_.Partner(line);
    const std::string_view text = oldLines_[static_cast<std::size_t>(line)];
    std::int32_t found = -1;
    int places = 0;
    for (std::size_t i = 0; i < lines_.size() && !text.empty(); ++i) {
      const auto now = static_cast<std::int32_t>(i);
      if (lines_[i] != text || map_.HunkAfter(now, now) < 0) continue;
      found = now;
      ++places;
    }
    return places == 1 ? found : map_.Successor(line);
  }

  bool Continued(std::int32_t line) const { return IsContinued(lines_[static_cast<std::size_t>(line)]); }

  /// After the whole statement of `line`, as an Attribute line after a continued line would be code; where the text
  /// breaks off within that statement, before it. 1-based, 0 for the front.
  std::int32_t PlaceAt(std::int32_t line) const {
    const auto end = static_cast<std::int32_t>(lines_.size());
    while (line + 1 < end && Continued(line)) ++line;
    if (!Continued(line)) return line + 1;
    while (line > 0 && Continued(line - 1)) --line;
    return line;
  }

  const SourceFile& baseline_;
  const std::vector<std::string_view>& oldLines_;
  const std::vector<std::string_view>& lines_;
  const LineMap map_;
  const std::vector<MemberDeclaration> before_, after_;
  const std::vector<std::int32_t> match_;
  std::multimap<std::string, std::size_t> declared_;  ///< folded name to index in `before_`, in the order of the text
};

}  // namespace

HiddenPlacement PlaceHiddenLines(const SourceFile& baseline, const std::vector<std::string_view>& canonical,
                                 const std::vector<std::string_view>& lines, const std::vector<DiffHunk>& hunks) {
  if (baseline.Hidden().empty()) return {};
  return HiddenLinePlaces(baseline, canonical, lines, hunks).Run();
}

}  // namespace quorvane::workbench

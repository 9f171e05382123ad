#include "workbench/text/ComposeFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "workbench/text/HiddenLines.h"
#include "workbench/text/LineDiff.h"

// The file is put together from pieces: its lines of code and hidden lines in their new order, each with its line end.
// Pieces that come from the file bring their ends along; the others get theirs from what they replace or stand after.

namespace quorvane::workbench {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct Piece {
  std::string_view content;
  std::string_view end;  ///< empty: not known yet, or none
  bool fresh = false;    ///< not a line of the file
};

std::string_view EndOf(std::string_view line) {
  if (line.ends_with("\r\n")) return line.substr(line.size() - 2);
  if (line.ends_with('\n') || line.ends_with('\r')) return line.substr(line.size() - 1);
  return {};
}

std::string_view MostFrequentEnd(std::string_view bytes) {
  static constexpr std::array<std::string_view, 3> kEnds = {"\r\n", "\n", "\r"};
  // Three loops without branches, which the compiler turns into vector instructions.
  std::size_t pairs = 0;
  for (std::size_t i = 1; i < bytes.size(); ++i) pairs += (bytes[i - 1] == '\r') & (bytes[i] == '\n') ? 1 : 0;
  const auto count = [bytes](char c) { return static_cast<std::size_t>(std::ranges::count(bytes, c)); };
  const std::array<std::size_t, 3> counts = {pairs, count('\n') - pairs, count('\r') - pairs};
  return kEnds[static_cast<std::size_t>(std::max_element(counts.begin(), counts.end()) - counts.begin())];
}

class FileComposer {
 public:
  FileComposer(const SourceFile& baseline, const std::vector<std::string_view>& canonical,
               const std::vector<std::string_view>& lines)
      : baseline_(baseline), lines_(lines), hunks_(DiffLines(canonical, lines)) {
    placement_ = PlaceHiddenLines(baseline, canonical, lines, hunks_);
  }

  ComposedFile Run() {
    const std::string_view bytes = baseline_.Bytes();
    AddPieces();
    GiveEnds(MostFrequentEnd(bytes));
    const std::string_view header = bytes.substr(0, baseline_.CodeBegin());
    ComposedFile composed;
    composed.bytes.reserve(bytes.size() + bytes.size() / 8);
    composed.bytes.append(header);
    if (!pieces_.empty() && !header.empty()) {
      const std::string_view end = EndOf(header);
      if (end.empty() && header != kByteOrderMark) composed.bytes.append(MostFrequentEnd(bytes));
      KeepApart(end, pieces_.front());
    }
    for (const Piece& piece : pieces_) composed.bytes.append(piece.content).append(piece.end);
    for (const std::size_t index : placement_.dropped) {
      composed.droppedHiddenLines.emplace_back(HiddenPiece(index).content);
    }
    return composed;
  }

 private:
  Piece HiddenPiece(std::size_t index) const {
    const SourceFile::HiddenLine& hidden = baseline_.Hidden()[index];
    const std::string_view line = std::string_view(baseline_.Bytes()).substr(hidden.begin, hidden.end - hidden.begin);
    const std::string_view end = EndOf(line);
    return {line.substr(0, line.size() - end.size()), end};
  }

  void AddPieces() {
    pieces_.reserve(lines_.size() + placement_.placed.size());
    AddHiddenUpTo(0);
    std::size_t before = 0;
    for (const DiffHunk& hunk : hunks_) {
      AddKept(before, static_cast<std::size_t>(hunk.beforeBegin));
      before = static_cast<std::size_t>(hunk.beforeEnd);
      for (std::int32_t i = hunk.afterBegin; i < hunk.afterEnd; ++i) {
        const std::int32_t replaced = hunk.beforeBegin + (i - hunk.afterBegin);
        const bool replaces = replaced < hunk.beforeEnd;
        AddLine({lines_[static_cast<std::size_t>(i)],
                 replaces ? baseline_.LineEnd(static_cast<std::size_t>(replaced)) : std::string_view(), true});
      }
    }
    AddKept(before, baseline_.Lines().size());
  }

  void AddKept(std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) AddLine({baseline_.LineBytes(i), baseline_.LineEnd(i)});
  }

  void AddLine(const Piece& piece) {
    pieces_.push_back(piece);
    AddHiddenUpTo(++lineCount_);
  }

  void AddHiddenUpTo(std::int32_t line) {
    while (nextHidden_ < placement_.placed.size() && placement_.placed[nextHidden_].after <= line) {
      const PlacedHiddenLine& place = placement_.placed[nextHidden_++];
      Piece piece = HiddenPiece(place.index);
      if (!place.renamed.empty()) piece.content = place.renamed;
      pieces_.push_back(piece);
    }
  }

  void GiveEnds(std::string_view usual) {
    const bool bare = !baseline_.Bytes().empty() && EndOf(baseline_.Bytes()).empty();
    std::string_view previous;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      Piece& piece = pieces_[i];
      const bool last = i + 1 == pieces_.size();
      if (last && !piece.content.empty() && (piece.fresh ? bare : piece.end.empty())) {
        piece.end = {};
        break;
      }
      if (piece.end.empty() && !previous.empty()) piece.end = previous;
      if (piece.end.empty() && !last) piece.end = pieces_[i + 1].end;
      if (piece.end.empty()) piece.end = usual;
      if (i > 0) KeepApart(pieces_[i - 1], piece);
      previous = piece.end;
    }
  }

  /// A lone CR, an empty line and a lone LF would read as one line end.
  static void KeepApart(Piece& previous, Piece& piece) {
    if (previous.fresh && previous.end == "\r" && piece.content.empty() && piece.end == "\n") {
      previous.end = "\r\n";
    } else {
      KeepApart(previous.end, piece);
    }
  }
  static void KeepApart(std::string_view previousEnd, Piece& piece) {
    if (previousEnd == "\r" && piece.content.empty() && piece.end == "\n") piece.end = "\r\n";
  }

  const SourceFile& baseline_;
  const std::vector<std::string_view>& lines_;
  const std::vector<DiffHunk> hunks_;
  HiddenPlacement placement_;
  std::vector<Piece> pieces_;
  std::int32_t lineCount_ = 0;
  std::size_t nextHidden_ = 0;
};

}  // namespace

ComposedFile ComposeFile(const SourceFile& baseline, const std::vector<std::string_view>& canonical,
                         const std::vector<std::string_view>& lines) {
  if (canonical == lines) return {baseline.Bytes(), {}};
  return FileComposer(baseline, canonical, lines).Run();
}

}  // namespace quorvane::workbench

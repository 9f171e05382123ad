#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "native/regexp/PatternTranslator.h"
#include "native/regexp/TimeBudget.h"

namespace quorvane::native {

/// A translated pattern, compiled, with everything a search needs, kept from search to search.
class PcrePattern {
 public:
  /// `source` is the pattern as the user wrote it, for error texts. Raises a PatternError when the engine refuses it.
  PcrePattern(std::u16string_view source, const TranslatedPattern& translated, bool multiline, bool ignoreCase,
              bool unicodeCase);
  ~PcrePattern();
  PcrePattern(const PcrePattern&) = delete;
  PcrePattern& operator=(const PcrePattern&) = delete;

  /// Begins a series of Find over one text. `interpreted` runs it without machine code, which is slower.
  void StartSearch(bool interpreted) {
    interpreted_ = interpreted;
    budget_.Start();
  }
  /// The leftmost match that begins at `from` (0-based) or after it. Raises error 28 when the search costs too much.
  bool Find(std::u16string_view text, std::size_t from);
  /// Of the match found last: begin and end of the whole and of each group; ~0 for a group that took no part.
  std::span<const std::size_t> Bounds() const;

 private:
  struct Engine;

  int RunWindow(std::u16string_view text, std::size_t from, std::size_t last);
  int RunOnBigStack(std::u16string_view text, std::size_t from);
  void RaiseLimit(std::size_t left);
  void AdaptWindow(bool mayGrow);
  [[noreturn]] void RaiseTooCostly();

  std::u16string source_;
  std::unique_ptr<Engine> engine_;
  TimeBudget budget_;
  bool interpreted_ = false;
  std::size_t window_;  ///< starting positions tried in one run
  std::size_t limit_;   ///< steps from one starting position
};

}  // namespace quorvane::native

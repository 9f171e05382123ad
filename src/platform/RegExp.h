#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

struct RegExpMatch {
  std::int32_t FirstIndex = 0;  ///< 0-based, UTF-16 units
  std::int32_t Length = 0;

  bool operator==(const RegExpMatch&) const = default;
};

/// The regular-expression object of the platform: ECMAScript 3 syntax, replacement tokens $1…$99 $& $` $' $$.
/// All four properties may be written between calls. A syntax error surfaces at Execute, Test and Replace as an Error
/// with the engine's words and the 0-based offset into Pattern; so does a pattern whose search takes unreasonable time.
class RegExp {
 public:
  virtual ~RegExp() = default;

  bool Global = false;
  bool Multiline = false;  ///< ^ and $ hold at line breaks too
  bool IgnoreCase = false;
  std::u16string Pattern;

  /// The matches from left to right, the first alone unless Global. After an empty match the search goes on one unit
  /// further.
  virtual std::vector<RegExpMatch> Execute(std::u16string_view text) = 0;
  virtual bool Test(std::u16string_view text) = 0;
  /// `text` with its matches (the first alone unless Global) replaced.
  virtual std::u16string Replace(std::u16string_view text, std::u16string_view replacement) = 0;

  /// ASCII texts of which every match of Pattern holds at least one, letters in either case when IgnoreCase. Empty when
  /// nothing is known, as for a pattern that is none; raises nothing.
  virtual std::vector<std::string> RequiredTexts() { return {}; }
};

}  // namespace quorvane

#pragma once

#include <memory>

#include "native/regexp/PatternTranslator.h"
#include "platform/RegExp.h"

namespace quorvane::native {

class PcrePattern;

/// The platform's regular expressions over PCRE2. The compiled pattern is kept until Pattern, Multiline or IgnoreCase
/// change.
///
/// A group inside a repetition keeps what it matched in an earlier round, where ECMAScript forgets it at each round.
class PcreRegExp : public RegExp {
 public:
  PcreRegExp();
  ~PcreRegExp() override;

  std::vector<RegExpMatch> Execute(std::u16string_view text) override;
  bool Test(std::u16string_view text) override;
  std::u16string Replace(std::u16string_view text, std::u16string_view replacement) override;
  std::vector<std::string> RequiredTexts() override;

 private:
  /// The compiled form that serves `text`.
  PcrePattern& PatternFor(std::u16string_view text);
  std::unique_ptr<PcrePattern> Compile(DotForm dot) const;
  void ReadPattern();

  /// Calls `visit` with the bounds of each match from left to right, of the first alone unless `all`.
  template <class Visitor>
  void ForEachMatch(std::u16string_view text, bool all, Visitor visit);

  bool read_ = false;  ///< what follows belongs to the present properties
  std::u16string readPattern_;
  bool readMultiline_ = false;
  bool readIgnoreCase_ = false;
  TranslatedPattern mudtTraits;  ///< of a first translation, for what is in the pattern
  bool unicodeCase_ = false;
  std::vector<std::string> required_;
  std::unique_ptr<PcrePattern> usual_;
  std::unique_ptr<PcrePattern> withSeparators_;  ///< for texts with U+2028 or U+2029, where `.` stops too
};

}  // namespace quorvane::native

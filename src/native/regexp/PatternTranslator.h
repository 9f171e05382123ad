#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "native/regexp/RequiredLiterals.h"

namespace quorvane::native {

/// The platform's numbers for a pattern that is no regular expression.
enum class PatternError : std::int32_t {
  Syntax = 5017,
  UnexpectedQuantifier = 5018,
  MissingBracket = 5019,
  MissingParenthesis = 5020,
  BadRange = 5021,
};

/// Raises `error` with `words` and " at offset N"; `offset` is 0-based into the pattern as the user wrote it.
[[noreturn]] void RaisePatternError(PatternError error, std::u16string words, std::size_t offset);

/// How `.` is written: all three give the same matches where they are allowed.
enum class DotForm {
  Plain,       ///< the engine's own; the text has no U+2028 or U+2029, and nothing in the pattern can match a line feed
  Breaks,      ///< a class without CR and LF; the text has no U+2028 or U+2029
  Separators,  ///< a class without CR, LF, U+2028 and U+2029
};

struct TranslationOptions {
  bool Multiline = false;
  bool UnicodeCase =
      false;  ///< the engine folds the case of all letters; shorthand classes must stay ASCII all the same
  DotForm Dot = DotForm::Separators;
};

struct TranslatedPattern {
  std::u16string Text;
  std::vector<std::uint32_t> Offsets;  ///< for each unit of Text, and for its end, the offset into the source
  std::size_t GroupCount = 0;
  bool HasNonAscii = false;
  bool HasBackReference = false;
  bool HasDot = false;
  bool MayMatchLineFeed = false;
  std::vector<std::string> RequiredLiterals;  ///< ASCII; one of them is in every match; empty: nothing is known
};

/// Turns a pattern in ECMAScript 3 syntax into one for the engine. What the engine would take for more than ECMAScript
/// means by it is refused or written as the literal that it is.
class PatternTranslator {
 public:
  /// `pattern` must outlive the translator.
  PatternTranslator(std::u16string_view pattern, const TranslationOptions& options);

  /// Once for each translator. Raises a PatternError.
  TranslatedPattern Translate();

 private:
  struct ClassAtom {
    char16_t Shorthand = 0;  ///< one of d D w W s S, or 0
    char16_t Unit = 0;
  };

  /// One of d D w W s S; those that hold the line feed.
  static bool IsShorthand(char16_t letter);
  static bool ShorthandHasLineFeed(char16_t letter);

  bool AtEnd() const { return pos_ >= pattern_.size(); }
  char16_t Peek() const { return AtEnd() ? u'\0' : pattern_[pos_]; }
  bool LooksAt(char16_t c) const { return !AtEnd() && pattern_[pos_] == c; }

  void Emit(std::u16string_view text);
  void EmitNumber(std::size_t number);
  void EmitLiteral(char16_t c);
  void EmitShorthand(char16_t letter);
  void EmitWithoutCase(std::u16string_view text);
  void EmitDot();
  void EmitAssertion(char16_t c);

  void TranslateToken();
  void OpenGroup();
  void CloseGroup();
  bool TryQuantifier();
  bool ParseBraces(std::size_t& least, std::size_t& most, bool& open);
  void EmitBraces(std::size_t least, std::size_t most, bool open);

  void TranslateEscape();
  void TranslateDecimalEscape();
  char16_t ParseCharacterEscape();
  char16_t ParseOctal();
  bool ParseHex(std::size_t digits, char16_t& unit);

  void TranslateClass();
  ClassAtom ParseClassAtom();
  void EmitClassRange(char16_t first, char16_t last);
  void EmitClassShorthand(char16_t letter);
  void NoteUnit(char16_t c);

  std::u16string_view pattern_;
  TranslationOptions mudtOptions;
  TranslatedPattern mudtResult;
  RequiredLiterals literals_;
  std::size_t pos_ = 0;
  std::size_t tokenStart_ = 0;
  std::size_t openGroups_ = 0;
  bool repeatable_ = false;        ///< a quantifier may follow
  bool caseIsOff_ = false;         ///< the engine's case folding is switched off until the atom's quantifier is written
  bool classHasLineFeed_ = false;  ///< of the class under way
};

}  // namespace quorvane::native

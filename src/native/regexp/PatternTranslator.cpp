// One walk over the pattern, token by token, writing each token in the engine's syntax. Whatever is not special in
// ECMAScript 3 is written so that the engine cannot take it for something special: punctuation after a backslash,
// other units as they are. Nothing that is special to the engine alone passes: `(?` opens three kinds of groups, a
// letter after a backslash that ECMAScript does not know is that letter. For each unit written the source offset is
// kept, so that an error found by the engine is told in the user's pattern.

#include "native/regexp/PatternTranslator.h"

#include <utility>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::native {

namespace {

constexpr std::size_t kMostRepeats = 65535;

bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}
bool IsOctal(char16_t c) {
  return c >= u'0' && c <= u'7';
}
bool IsLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

int HexValue(char16_t c) {
  if (IsDigit(c)) return c - u'0';
  const char16_t lower = ToLowerAscii(c);
  return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

/// The groups that capture: each `(` that is no literal and is not followed by `?`.
std::size_t CountGroups(std::u16string_view pattern) {
  std::size_t count = 0;
  bool inClass = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char16_t c = pattern[i];
    if (c == u'\\') {
      ++i;
    } else if (inClass) {
      inClass = c != u']';
    } else if (c == u'[') {
      inClass = true;
    } else if (c == u'(' && (i + 1 >= pattern.size() || pattern[i + 1] != u'?')) {
      ++count;
    }
  }
  return count;
}

}  // namespace

void RaisePatternError(PatternError error, std::u16string words, std::size_t offset) {
  throw Error(static_cast<std::int32_t>(error), words + u" at offset " + ToText(static_cast<std::int64_t>(offset)));
}

PatternTranslator::PatternTranslator(std::u16string_view pattern, const TranslationOptions& options)
    : pattern_(pattern), mudtOptions(options), literals_(options.UnicodeCase) {
  mudtResult.GroupCount = CountGroups(pattern);
}

bool PatternTranslator::IsShorthand(char16_t letter) {
  return std::u16string_view(u"dDwWsS").find(letter) != std::u16string_view::npos;
}

bool PatternTranslator::ShorthandHasLineFeed(char16_t letter) {
  return letter == u's' || letter == u'W' || letter == u'D';
}

TranslatedPattern PatternTranslator::Translate() {
  while (!AtEnd()) {
    tokenStart_ = pos_;
    if (TryQuantifier()) continue;
    if (caseIsOff_) Emit(u"(?i)");
    caseIsOff_ = false;
    TranslateToken();
  }
  tokenStart_ = pos_;
  if (openGroups_ > 0) {
    RaisePatternError(PatternError::MissingParenthesis, u"Expected ')' in regular expression", pos_);
  }
  // A CR that is never matched. Without any CR in the pattern the engine would not try a match between CR and LF.
  Emit(u"\\r{0}");
  mudtResult.Offsets.push_back(static_cast<std::uint32_t>(pos_));
  mudtResult.RequiredLiterals = literals_.Take();
  return std::move(mudtResult);
}

void PatternTranslator::Emit(std::u16string_view text) {
  mudtResult.Text.append(text);
  mudtResult.Offsets.resize(mudtResult.Text.size(), static_cast<std::uint32_t>(tokenStart_));
}

void PatternTranslator::EmitNumber(std::size_t number) {
  Emit(ToText(static_cast<std::int64_t>(number)));
}

void PatternTranslator::NoteUnit(char16_t c) {
  if (c >= 0x80) mudtResult.HasNonAscii = true;
}

void PatternTranslator::EmitLiteral(char16_t c) {
  NoteUnit(c);
  literals_.Literal(c);
  if (c == u'\n') mudtResult.MayMatchLineFeed = true;
  if (c >= 0x80 || IsLetter(c) || IsDigit(c) || c == u'_' || c == u' ') {
    Emit({&c, 1});
  } else if (c > u' ' && c < 0x7F) {
    const char16_t escaped[] = {u'\\', c};
    Emit({escaped, 2});
  } else {
    constexpr std::u16string_view digits = u"0123456789abcdef";
    const char16_t escaped[] = {u'\\', u'x', digits[static_cast<std::size_t>(c >> 4)],
                                digits[static_cast<std::size_t>(c & 15)]};
    Emit({escaped, 4});
  }
}

/// Text that is matched with the case as written; the switch back follows the quantifier, if there is one.
void PatternTranslator::EmitWithoutCase(std::u16string_view text) {
  Emit(u"(?-i)");
  Emit(text);
  caseIsOff_ = true;
}

void PatternTranslator::EmitShorthand(char16_t letter) {
  literals_.Other();
  if (ShorthandHasLineFeed(letter)) mudtResult.MayMatchLineFeed = true;
  if (!mudtOptions.UnicodeCase) {
    const char16_t escaped[] = {u'\\', letter};
    Emit({escaped, 2});
  } else if (letter == u'w') {
    EmitWithoutCase(u"[0-9A-Z_a-z]");
  } else if (letter == u'W') {
    EmitWithoutCase(u"[^0-9A-Z_a-z]");
  } else if (letter == u'd') {
    Emit(u"[0-9]");
  } else if (letter == u'D') {
    Emit(u"[^0-9]");
  } else {
    Emit(letter == u's' ? u"[\\t-\\r ]" : u"[^\\t-\\r ]");
  }
}

void PatternTranslator::EmitDot() {
  literals_.Other();
  mudtResult.HasDot = true;
  constexpr std::u16string_view forms[] = {u".", u"[^\\n\\r]", u"[^\\n\\r\\x{2028}\\x{2029}]"};
  Emit(forms[static_cast<std::size_t>(mudtOptions.Dot)]);
}

void PatternTranslator::EmitAssertion(char16_t c) {
  literals_.Assertion();
  if (c == u'^' || c == u'$') {
    Emit({&c, 1});
    // CR LF is one break, and nothing holds inside it.
    if (mudtOptions.Multiline) Emit(u"(?!\\n(?<=\\r\\n))");
    return;
  }
  if (c == u'B') mudtResult.MayMatchLineFeed = true;  // it holds between CR and LF
  if (!mudtOptions.UnicodeCase) {
    Emit(c == u'b' ? u"\\b" : u"\\B");
  } else if (c == u'b') {
    Emit(u"(?-i:(?<=[0-9A-Z_a-z])(?![0-9A-Z_a-z])|(?<![0-9A-Z_a-z])(?=[0-9A-Z_a-z]))");
  } else {
    Emit(u"(?-i:(?<=[0-9A-Z_a-z])(?=[0-9A-Z_a-z])|(?<![0-9A-Z_a-z])(?![0-9A-Z_a-z]))");
  }
}

void PatternTranslator::TranslateToken() {
  const char16_t c = pattern_[pos_++];
  repeatable_ = true;
  switch (c) {
    case u'|':
      literals_.Alternative();
      Emit(u"|");
      repeatable_ = false;
      break;
    case u'^':
    case u'$':
      EmitAssertion(c);
      repeatable_ = false;
      break;
    case u'(':
      OpenGroup();
      break;
    case u')':
      CloseGroup();
      break;
    case u'[':
      TranslateClass();
      break;
    case u'.':
      EmitDot();
      break;
    case u'\\':
      TranslateEscape();
      break;
    default:
      EmitLiteral(c);
  }
}

void PatternTranslator::OpenGroup() {
  ++openGroups_;
  repeatable_ = false;
  if (!LooksAt(u'?')) {
    literals_.OpenGroup(false);
    Emit(u"(");
    return;
  }
  ++pos_;
  const char16_t kind = Peek();
  if (kind != u':' && kind != u'=' && kind != u'!') {
    const bool lookBehind =
        kind == u'<' && pos_ + 1 < pattern_.size() && (pattern_[pos_ + 1] == u'=' || pattern_[pos_ + 1] == u'!');
    RaisePatternError(PatternError::Syntax,
                      lookBehind ? u"Syntax error in regular expression: look-behind is not known"
                                 : u"Syntax error in regular expression: unknown group",
                      pos_ - 1);
  }
  ++pos_;
  literals_.OpenGroup(kind != u':');
  if (kind == u'!') mudtResult.MayMatchLineFeed = true;  // it can hold between CR and LF where it fails before CR
  const char16_t opening[] = {u'(', u'?', kind};
  Emit({opening, 3});
}

void PatternTranslator::CloseGroup() {
  if (openGroups_ == 0) {
    RaisePatternError(PatternError::Syntax, u"Syntax error in regular expression: unmatched ')'", tokenStart_);
  }
  --openGroups_;
  literals_.CloseGroup();
  Emit(u")");
}

bool PatternTranslator::TryQuantifier() {
  const char16_t c = pattern_[pos_];
  std::size_t least = 0;
  std::size_t most = 0;
  bool open = false;
  const bool braces = c == u'{' && ParseBraces(least, most, open);
  if (!braces && c != u'*' && c != u'+' && c != u'?') return false;
  if (!repeatable_) {
    RaisePatternError(PatternError::UnexpectedQuantifier, u"Unexpected quantifier", tokenStart_);
  }
  literals_.Quantifier(braces ? least : c == u'+' ? 1 : 0);
  if (braces) {
    EmitBraces(least, most, open);
  } else {
    Emit({&c, 1});
    ++pos_;
  }
  if (LooksAt(u'?')) {
    Emit(u"?");
    ++pos_;
  }
  repeatable_ = false;
  return true;
}

/// Reads {n}, {n,} or {n,m}; anything else is left alone, for its `{` is a literal.
bool PatternTranslator::ParseBraces(std::size_t& least, std::size_t& most, bool& open) {
  std::size_t i = pos_ + 1;
  const auto number = [&](std::size_t& value) {
    const std::size_t begin = i;
    for (value = 0; i < pattern_.size() && IsDigit(pattern_[i]); ++i) {
      if (value <= kMostRepeats) value = value * 10 + (pattern_[i] - u'0');
    }
    return i > begin;
  };
  const auto accept = [&](char16_t c) { return i < pattern_.size() && pattern_[i] == c && ++i > 0; };
  if (!number(least)) return false;
  most = least;
  if (accept(u',')) open = !number(most);
  if (!accept(u'}')) return false;
  pos_ = i;
  return true;
}

void PatternTranslator::EmitBraces(std::size_t least, std::size_t most, bool open) {
  if (least > kMostRepeats || (!open && most > kMostRepeats)) {
    RaisePatternError(PatternError::Syntax, u"Syntax error in regular expression: number too big in {}", tokenStart_);
  }
  if (!open && least > most) {
    RaisePatternError(PatternError::Syntax, u"Syntax error in regular expression: numbers out of order in {}",
                      tokenStart_);
  }
  Emit(u"{");
  EmitNumber(least);
  if (open || least != most) Emit(u",");
  if (!open && least != most) EmitNumber(most);
  Emit(u"}");
}

void PatternTranslator::TranslateEscape() {
  if (AtEnd()) {
    RaisePatternError(PatternError::Syntax, u"Syntax error in regular expression: \\ at end of pattern", pos_);
  }
  const char16_t c = Peek();
  if (c == u'b' || c == u'B') {
    ++pos_;
    EmitAssertion(c);
    repeatable_ = false;
  } else if (IsShorthand(c)) {
    ++pos_;
    EmitShorthand(c);
  } else if (c >= u'1' && c <= u'9') {
    TranslateDecimalEscape();
  } else {
    EmitLiteral(ParseCharacterEscape());
  }
}

/// Two digits are a back reference when there is such a group, else one digit is; else they are an octal number or the
/// digit itself.
void PatternTranslator::TranslateDecimalEscape() {
  const std::size_t one = pattern_[pos_] - u'0';
  const bool hasTwo = pos_ + 1 < pattern_.size() && IsDigit(pattern_[pos_ + 1]);
  const std::size_t two = hasTwo ? one * 10 + (pattern_[pos_ + 1] - u'0') : 0;
  const bool useTwo = hasTwo && two <= mudtResult.GroupCount;
  if (!useTwo && one > mudtResult.GroupCount) {
    EmitLiteral(ParseCharacterEscape());
    return;
  }
  pos_ += useTwo ? 2 : 1;
  literals_.Other();
  mudtResult.HasBackReference = true;
  Emit(u"\\g{");
  EmitNumber(useTwo ? two : one);
  Emit(u"}");
}

/// After a backslash: the unit that the escape stands for.
char16_t PatternTranslator::ParseCharacterEscape() {
  const char16_t c = pattern_[pos_];
  if (IsOctal(c)) return ParseOctal();
  ++pos_;
  char16_t unit = c;
  switch (c) {
    case u't':
      return u'\t';
    case u'n':
      return u'\n';
    case u'v':
      return u'\v';
    case u'f':
      return u'\f';
    case u'r':
      return u'\r';
    case u'c':
      if (AtEnd() || !IsLetter(Peek())) {
        --pos_;
        return u'\\';
      }
      return pattern_[pos_++] % 32;
    case u'x':
      ParseHex(2, unit);
      return unit;
    case u'u':
      ParseHex(4, unit);
      return unit;
    default:
      return c;
  }
}

char16_t PatternTranslator::ParseOctal() {
  unsigned value = 0;
  for (int digits = 0; digits < 3 && !AtEnd() && IsOctal(Peek()); ++digits) {
    const unsigned next = value * 8 + (Peek() - u'0');
    if (next > 0377) break;
    value = next;
    ++pos_;
  }
  return static_cast<char16_t>(value);
}

bool PatternTranslator::ParseHex(std::size_t digits, char16_t& unit) {
  if (pos_ + digits > pattern_.size()) return false;
  unsigned value = 0;
  for (std::size_t i = 0; i < digits; ++i) {
    const int digit = HexValue(pattern_[pos_ + i]);
    if (digit < 0) return false;
    value = value * 16 + static_cast<unsigned>(digit);
  }
  pos_ += digits;
  unit = static_cast<char16_t>(value);
  return true;
}

}  // namespace quorvane::native

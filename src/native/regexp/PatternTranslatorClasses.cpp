// The part of the translator that reads a character class. Every unit is written as a number, so that neither POSIX
// names nor set operations of the engine can arise.

#include "base/Text.h"
#include "native/regexp/PatternTranslator.h"

namespace quorvane::native {

namespace {

std::u16string Hex(char16_t c) {
  std::u16string text = u"\\x{";
  for (int shift = 12; shift >= 0; shift -= 4) text += u"0123456789abcdef"[(c >> shift) & 15];
  return text + u"}";
}

/// A shorthand inside a class, spelled out. U+017F and U+212A are the other cases of s and k: a range that holds one
/// of them would let in the ASCII letter too when case does not count.
std::u16string_view Spelled(char16_t letter) {
  switch (letter) {
    case u'd':
      return u"0-9";
    case u'D':
      return u"\\x{0}-\\/:-\\x{ffff}";
    case u'w':
      return u"0-9A-Z_a-z";
    case u'W':
      return u"\\x{0}-\\/:-@\\[-\\^`\\{-\\x{17e}\\x{180}-\\x{2129}\\x{212b}-\\x{ffff}";
    case u's':
      return u"\\t-\\r ";
    default:
      return u"\\x{0}-\\x{8}\\x{e}-\\x{1f}!-\\x{ffff}";
  }
}

}  // namespace

void PatternTranslator::TranslateClass() {
  literals_.Other();
  const bool negated = LooksAt(u'^');
  if (negated) ++pos_;
  if (LooksAt(u']')) {
    ++pos_;
    if (negated) mudtResult.MayMatchLineFeed = true;
    Emit(negated ? u"[^]" : u"[^\\x{0}-\\x{ffff}]");
    return;
  }
  const std::size_t begin = mudtResult.Text.size();
  std::u16string shorthands;
  classHasLineFeed_ = false;
  Emit(negated ? u"[^" : u"[");
  while (!LooksAt(u']')) {
    const std::size_t at = pos_;
    const ClassAtom first = ParseClassAtom();
    const bool range = LooksAt(u'-') && pos_ + 1 < pattern_.size() && pattern_[pos_ + 1] != u']';
    if (first.Shorthand != 0) {
      shorthands += first.Shorthand;
      EmitClassShorthand(first.Shorthand);
      continue;
    }
    if (!range) {
      EmitClassRange(first.Unit, first.Unit);
      continue;
    }
    ++pos_;
    const ClassAtom last = ParseClassAtom();
    if (last.Shorthand != 0) {  // a range cannot end in a set: the hyphen stands for itself
      EmitClassRange(first.Unit, first.Unit);
      EmitClassRange(u'-', u'-');
      shorthands += last.Shorthand;
      EmitClassShorthand(last.Shorthand);
      continue;
    }
    if (first.Unit > last.Unit) RaisePatternError(PatternError::BadRange, u"Invalid range in character set", at);
    EmitClassRange(first.Unit, last.Unit);
  }
  ++pos_;
  Emit(u"]");
  if (classHasLineFeed_ != negated) mudtResult.MayMatchLineFeed = true;
  // A set with its complement is every unit, which the engine runs much faster than a class.
  for (const char16_t letter : {u'd', u'w', u's'}) {
    const bool all = shorthands.find(letter) != shorthands.npos &&
                     shorthands.find(static_cast<char16_t>(letter - 32)) != shorthands.npos;
    if (!all) continue;
    mudtResult.Text.resize(begin);
    mudtResult.Offsets.resize(begin);
    Emit(negated ? u"[^\\x{0}-\\x{ffff}]" : u"[^]");
    return;
  }
}

PatternTranslator::ClassAtom PatternTranslator::ParseClassAtom() {
  if (AtEnd()) RaisePatternError(PatternError::MissingBracket, u"Expected ']' in regular expression", pos_);
  const char16_t c = pattern_[pos_++];
  if (c != u'\\') return {0, c};
  if (AtEnd()) RaisePatternError(PatternError::MissingBracket, u"Expected ']' in regular expression", pos_);
  const char16_t escaped = Peek();
  if (IsShorthand(escaped)) {
    ++pos_;
    return {escaped, 0};
  }
  if (escaped == u'b') {
    ++pos_;
    return {0, u'\b'};
  }
  return {0, ParseCharacterEscape()};
}

void PatternTranslator::EmitClassRange(char16_t first, char16_t last) {
  NoteUnit(last);
  if (first <= u'\n' && last >= u'\n') classHasLineFeed_ = true;
  Emit(Hex(first));
  if (first == last) return;
  Emit(u"-");
  Emit(Hex(last));
}

void PatternTranslator::EmitClassShorthand(char16_t letter) {
  if (ShorthandHasLineFeed(letter)) classHasLineFeed_ = true;
  if (mudtOptions.UnicodeCase) {
    Emit(Spelled(letter));
  } else {
    const char16_t escaped[] = {u'\\', letter};
    Emit({escaped, 2});
  }
}

}  // namespace quorvane::native

#include "chordtrap/KeyChord.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

#include "base/Error.h"
#include "base/KeyCode.h"
#include "base/Text.h"

namespace quorvane::chordtrap {

// One table serves both ways: a text is read by asking which code would be written so.

namespace {

constexpr std::int32_t kLastCode = 255;

struct KeyName {
  std::int32_t code;
  std::u16string_view name;
};

constexpr KeyName kNames[] = {
    {kKeyBackspace, u"Backspace"},
    {kKeyTab, u"Tab"},
    {kKeyEnter, u"Enter"},
    {kKeyPause, u"Pause"},
    {kKeyCapsLock, u"CapsLock"},
    {kKeyEscape, u"Esc"},
    {kKeySpace, u"Space"},
    {kKeyPageUp, u"PageUp"},
    {kKeyPageDown, u"PageDown"},
    {kKeyEnd, u"End"},
    {kKeyHome, u"Home"},
    {kKeyLeft, u"Left"},
    {kKeyUp, u"Up"},
    {kKeyRight, u"Right"},
    {kKeyDown, u"Down"},
    {kKeyPrintScreen, u"PrintScreen"},
    {kKeyInsert, u"Insert"},
    {kKeyDelete, u"Delete"},
    {kKeyMenu, u"Menu"},
    {kKeyNumMultiply, u"NumMultiply"},
    {kKeyNumAdd, u"NumAdd"},
    {kKeyNumSubtract, u"NumSubtract"},
    {kKeyNumDecimal, u"NumDecimal"},
    {kKeyNumDivide, u"NumDivide"},
    {kKeyNumLock, u"NumLock"},
    {kKeyScrollLock, u"ScrollLock"},
    {kKeySemicolon, u";"},
    {kKeyEquals, u"="},
    {kKeyComma, u","},
    {kKeyMinus, u"-"},
    {kKeyFullStop, u"."},
    {kKeySlash, u"/"},
    {kKeyBackquote, u"`"},
    {kKeyOpenBracket, u"["},
    {kKeyBackslash, u"\\"},
    {kKeyCloseBracket, u"]"},
    {kKeyQuote, u"'"},
};

struct ModifierName {
  std::int32_t bit;
  std::u16string_view name;
};

/// In the order in which they are written.
constexpr ModifierName kModifiers[] = {{kCtrl, u"Ctrl"}, {kAlt, u"Alt"}, {kShift, u"Shift"}};

bool IsLetterOrDigit(std::int32_t code) {
  return (code >= u'0' && code <= u'9') || (code >= u'A' && code <= u'Z');
}

std::u16string NameOf(std::int32_t code) {
  if (IsLetterOrDigit(code)) return std::u16string(1, static_cast<char16_t>(code));
  if (code >= kKeyNumpad0 && code < kKeyNumpad0 + 10) return u"Num" + ToText(code - kKeyNumpad0);
  if (code >= kKeyF1 && code <= kKeyF24) return u"F" + ToText(code - kKeyF1 + 1);
  for (const KeyName& key : kNames) {
    if (key.code == code) return std::u16string(key.name);
  }
  return u"Key" + ToText(code);
}

/// The codes by name, asked of NameOf itself so that reading and writing cannot drift apart.
std::optional<std::int32_t> CodeOf(std::u16string_view name) {
  for (std::int32_t code = 1; code <= kLastCode; ++code) {
    if (EqualsNoCaseAscii(NameOf(code), name)) return code;
  }
  return std::nullopt;
}

std::int32_t ModifierOf(std::u16string_view name) {
  for (const ModifierName& modifier : kModifiers) {
    if (EqualsNoCaseAscii(modifier.name, name)) return modifier.bit;
  }
  return 0;
}

}  // namespace

std::u16string KeyText(const KeyChord& chord) {
  if (chord.KeyCode < 0 || chord.KeyCode > kLastCode || (chord.Modifier & ~(kShift | kCtrl | kAlt)) != 0) {
    RaiseError(ErrorNumber::InvalidProcedureCall);
  }
  std::u16string text;
  if (chord.KeyCode == 0) return text;
  for (const ModifierName& modifier : kModifiers) {
    if ((chord.Modifier & modifier.bit) != 0) text.append(modifier.name).append(u"+");
  }
  return text + NameOf(chord.KeyCode);
}

KeyChord ParseKey(std::u16string_view text) {
  KeyChord chord;
  if (TrimBlanks(text).empty()) return chord;
  std::vector<std::u16string_view> parts = Split(text, u"+");
  const std::u16string_view key = TrimBlanks(parts.back());
  parts.pop_back();
  for (const std::u16string_view part : parts) {
    const std::int32_t bit = ModifierOf(TrimBlanks(part));
    if (bit == 0 || (chord.Modifier & bit) != 0) RaiseError(ErrorNumber::TypeMismatch);
    chord.Modifier |= bit;
  }
  const auto code = CodeOf(key);
  if (!code) RaiseError(ErrorNumber::TypeMismatch);
  chord.KeyCode = *code;
  return chord;
}

bool IsModifierKey(std::int32_t keyCode) {
  constexpr std::int32_t kKeys[] = {kKeyShift, kKeyControl, kKeyAlt, kKeySystem, kKeyRightSystem};
  return std::find(std::begin(kKeys), std::end(kKeys), keyCode) != std::end(kKeys);
}

bool IsUsable(const KeyChord& chord) {
  if (chord.KeyCode == 0 || IsModifierKey(chord.KeyCode)) return false;
  return (chord.Modifier & (kCtrl | kAlt)) != 0 || (chord.KeyCode >= kKeyF1 && chord.KeyCode <= kKeyF24);
}

}  // namespace quorvane::chordtrap

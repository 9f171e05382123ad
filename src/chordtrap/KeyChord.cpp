#include "chordtrap/KeyChord.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::chordtrap {

namespace {

constexpr std::int32_t kLastCode = 255;
constexpr std::int32_t kF1 = 112;
constexpr std::int32_t kF24 = 135;
constexpr std::int32_t kNumpad0 = 96;

struct KeyName {
  std::int32_t code;
  std::u16string_view name;
};

constexpr KeyName kNames[] = {
    {8, u"Backspace"},    {9, u"Tab"},           {13, u"Enter"},       {19, u"Pause"},      {20, u"CapsLock"},
    {27, u"Esc"},         {32, u"Space"},        {33, u"PageUp"},      {34, u"PageDown"},   {35, u"End"},
    {36, u"Home"},        {37, u"Left"},         {38, u"Up"},          {39, u"Right"},      {40, u"Down"},
    {44, u"PrintScreen"}, {45, u"Insert"},       {46, u"Delete"},      {93, u"Menu"},       {106, u"NumMultiply"},
    {107, u"NumAdd"},     {109, u"NumSubtract"}, {110, u"NumDecimal"}, {111, u"NumDivide"}, {144, u"NumLock"},
    {145, u"ScrollLock"}, {186, u";"},           {187, u"="},          {188, u","},         {189, u"-"},
    {190, u"."},          {191, u"/"},           {192, u"`"},          {219, u"["},         {220, u"\\"},
    {221, u"]"},          {222, u"'"},
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
  if (code >= kNumpad0 && code < kNumpad0 + 10) return u"Num" + ToText(code - kNumpad0);
  if (code >= kF1 && code <= kF24) return u"F" + ToText(code - kF1 + 1);
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
  constexpr std::int32_t kKeys[] = {16, 17, 18, 91, 92};
  return std::find(std::begin(kKeys), std::end(kKeys), keyCode) != std::end(kKeys);
}

bool IsUsable(const KeyChord& chord) {
  if (chord.KeyCode == 0 || IsModifierKey(chord.KeyCode)) return false;
  return (chord.Modifier & (kCtrl | kAlt)) != 0 || (chord.KeyCode >= kF1 && chord.KeyCode <= kF24);
}

}  // namespace quorvane::chordtrap

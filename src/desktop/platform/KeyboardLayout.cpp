#include "desktop/platform/KeyboardLayout.h"

#include <xcb/xcb.h>

#include <QGuiApplication>
#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>

#include "base/KeyCode.h"

namespace quorvane::desktop {

namespace {

/// Of a sign that has a key of its own on the US keyboard, without Shift, and of the plus; 0 for any other keysym.
std::int32_t CodeOfSign(std::uint32_t keysym) {
  switch (keysym) {
    case ';':
      return kKeySemicolon;
    case '=':
    case '+':
      return kKeyEquals;
    case ',':
      return kKeyComma;
    case '-':
      return kKeyMinus;
    case '.':
      return kKeyFullStop;
    case '/':
      return kKeySlash;
    case '`':
      return kKeyBackquote;
    case '[':
      return kKeyOpenBracket;
    case '\\':
      return kKeyBackslash;
    case ']':
      return kKeyCloseBracket;
    case '\'':
      return kKeyQuote;
    default:
      return 0;
  }
}

/// These four codes mean their sign on each keyboard; the others move with the country.
bool IsEverywhere(std::int32_t code) {
  return code == kKeyEquals || code == kKeyComma || code == kKeyMinus || code == kKeyFullStop;
}

bool IsDigit(std::uint32_t keysym) {
  return keysym >= '0' && keysym <= '9';
}

/// Cyrillic, Greek, Arabic and so on, in both ways in which keysyms name them; what stands above in either is no sign.
bool IsOfOtherScript(std::uint32_t keysym) {
  return (keysym >= 0x400 && keysym < 0xFD00) || keysym >= 0x01000370;
}

std::int32_t CodeOfPlace(std::uint32_t scanCode) {
  struct Row {
    std::uint32_t first;  ///< scan code
    std::string_view signs;
  };
  constexpr Row kRows[] = {{10, "1234567890-="}, {24, "QWERTYUIOP[]"}, {38, "ASDFGHJKL;'`"}, {51, "\\ZXCVBNM,./"}};
  for (const Row& row : kRows) {
    if (scanCode < row.first || scanCode - row.first >= row.signs.size()) continue;
    const auto sign = static_cast<unsigned char>(row.signs[scanCode - row.first]);
    return CodeOfSign(sign) != 0 ? CodeOfSign(sign) : sign;
  }
  return 0;
}

}  // namespace

std::optional<KeyboardLayout> KeyboardLayout::Now(std::uint32_t nativeModifiers) {
  constexpr int kGroupShift = 13;
  constexpr int kLevels = 2;  // of a group, that the mapping lists first for two groups
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  const auto group = static_cast<int>(nativeModifiers >> kGroupShift & 3);
  if (x11 == nullptr || group > 1) return std::nullopt;
  xcb_connection_t* connection = x11->connection();
  const xcb_setup_t* setup = xcb_get_setup(connection);
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  const std::unique_ptr<xcb_get_keyboard_mapping_reply_t, decltype(&std::free)> reply(
      xcb_get_keyboard_mapping_reply(connection, xcb_get_keyboard_mapping(connection, setup->min_keycode, count),
                                     nullptr),
      &std::free);
  if (!reply || reply->keysyms_per_keycode < kLevels) return std::nullopt;
  const xcb_keysym_t* signs = xcb_get_keyboard_mapping_keysyms(reply.get());
  const int perKey = reply->keysyms_per_keycode;
  std::vector<Key> keys(setup->min_keycode);
  for (int key = 0; key < count; ++key, signs += perKey) {
    const bool second = group == 1 && perKey >= 2 * kLevels && signs[kLevels] != 0;
    keys.push_back(second ? Key{signs[kLevels], signs[kLevels + 1]} : Key{signs[0], signs[1]});
  }
  return KeyboardLayout(std::move(keys));
}

std::int32_t KeyboardLayout::CodeOf(std::uint32_t scanCode) const {
  if (scanCode >= keys_.size()) return 0;
  const Key& key = keys_[scanCode];
  for (const std::uint32_t sign : {key.plain, key.shifted}) {
    if (IsDigit(sign)) return static_cast<std::int32_t>(sign);
  }
  const std::int32_t plain = CodeOfSign(key.plain);
  const std::int32_t shifted = IsFree(key.shifted) ? CodeOfSign(key.shifted) : 0;
  if (IsEverywhere(plain)) return plain;
  if (IsEverywhere(shifted)) return shifted;
  if (IsOfOtherScript(key.plain)) return CodeOfPlace(scanCode);
  return plain != 0 ? plain : shifted;
}

bool KeyboardLayout::IsFree(std::uint32_t sign) const {
  return std::ranges::none_of(keys_, [code = CodeOfSign(sign)](const Key& key) {
    return CodeOfSign(key.plain) == code && !IsDigit(key.shifted);
  });
}

}  // namespace quorvane::desktop

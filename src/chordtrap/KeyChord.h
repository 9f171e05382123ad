#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane::chordtrap {

/// Bits of a modifier.
inline constexpr std::int32_t kShift = 1;
inline constexpr std::int32_t kCtrl = 2;
inline constexpr std::int32_t kAlt = 4;

/// A key with the modifiers held down, by the platform's virtual-key codes. Code 0 is no key at all.
struct KeyChord {
  std::int32_t KeyCode = 0;   ///< 0 to 255
  std::int32_t Modifier = 0;  ///< sum of the bits above

  bool operator==(const KeyChord&) const = default;
};

/// The text form, such as "Ctrl+Q"; empty for no key. Signs go by the key of the US keyboard, and a key without a name
/// is "Key" and its code. Raises error 5 for a code or a modifier out of range.
std::u16string KeyText(const KeyChord& chord);

/// Reads what KeyText writes, in any case and order of the modifiers, blanks around each part ignored. Raises error 13
/// for any other text.
KeyChord ParseKey(std::u16string_view text);

/// Whether the key is one of those that modify others: Shift, Ctrl, Alt, either system key.
bool IsModifierKey(std::int32_t keyCode);

/// Whether a chord can be a hotkey without keeping the user from typing: with Ctrl or Alt, or a function key. A
/// modifier key cannot.
bool IsUsable(const KeyChord& chord);

}  // namespace quorvane::chordtrap

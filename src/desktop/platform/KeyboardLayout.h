#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace quorvane::desktop {

/// Which signs stand on the keys of a keyboard, and so which key is the one for the full stop, the comma and so on,
/// whether or not its sign needs Shift.
class KeyboardLayout {
 public:
  /// What a key gives without and with Shift, as the window system's keysyms; 0 for nothing.
  struct Key {
    std::uint32_t plain = 0;
    std::uint32_t shifted = 0;
  };

  /// `keys[i]` is the key with scan code i.
  explicit KeyboardLayout(std::vector<Key> keys) : keys_(std::move(keys)) {}
  /// That of the display at the moment, in the group that an event's native modifiers tell; no value where the window
  /// system does not say.
  static std::optional<KeyboardLayout> Now(std::uint32_t nativeModifiers);

  /// The platform's virtual-key code of a key; 0 for one without. The sign that it gives without Shift decides, then
  /// the one with Shift, unless another key gives that one without; but a digit comes first, then plus, comma, minus
  /// and full stop. A key of another script has the code of its place on the US keyboard.
  std::int32_t CodeOf(std::uint32_t scanCode) const;

 private:
  /// No key gives the sign without Shift.
  bool IsFree(std::uint32_t sign) const;

  std::vector<Key> keys_;
};

}  // namespace quorvane::desktop

#pragma once

#include <cstdint>

namespace quorvane {

/// Virtual-key codes of the platform, those that the code names. A letter or digit has the code of its capital sign;
/// signs go by the US keyboard.
enum KeyCode : std::int16_t {
  kKeyBackspace = 8,
  kKeyTab = 9,
  kKeyClear = 12,
  kKeyEnter = 13,
  kKeyShift = 16,
  kKeyControl = 17,
  kKeyAlt = 18,
  kKeyPause = 19,
  kKeyCapsLock = 20,
  kKeyEscape = 27,
  kKeySpace = 32,
  kKeyPageUp = 33,
  kKeyPageDown = 34,
  kKeyEnd = 35,
  kKeyHome = 36,
  kKeyLeft = 37,
  kKeyUp = 38,
  kKeyRight = 39,
  kKeyDown = 40,
  kKeyPrintScreen = 44,
  kKeyInsert = 45,
  kKeyDelete = 46,
  kKeyQ = 81,
  kKeySystem = 91,
  kKeyRightSystem = 92,
  kKeyMenu = 93,
  kKeyNumpad0 = 96,
  kKeyNumMultiply = 106,
  kKeyNumAdd = 107,
  kKeyNumSubtract = 109,
  kKeyNumDecimal = 110,
  kKeyNumDivide = 111,
  kKeyF1 = 112,
  kKeyF24 = 135,
  kKeyNumLock = 144,
  kKeyScrollLock = 145,
  kKeySemicolon = 186,
  kKeyEquals = 187,
  kKeyComma = 188,
  kKeyMinus = 189,
  kKeyFullStop = 190,
  kKeySlash = 191,
  kKeyBackquote = 192,
  kKeyOpenBracket = 219,
  kKeyBackslash = 220,
  kKeyCloseBracket = 221,
  kKeyQuote = 222,
};

}  // namespace quorvane

#include "desktop/platform/QtKeys.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "base/KeyCode.h"
#include "desktop/platform/KeyboardLayout.h"
#include "platform/forms/MouseButton.h"

namespace quorvane::desktop {

namespace {

struct KeyPair {
  int qt;
  std::int32_t code;
};

constexpr std::array kKeys = {
    KeyPair{Qt::Key_Backspace, kKeyBackspace},
    KeyPair{Qt::Key_Tab, kKeyTab},
    KeyPair{Qt::Key_Backtab, kKeyTab},
    KeyPair{Qt::Key_Clear, kKeyClear},
    KeyPair{Qt::Key_Return, kKeyEnter},
    KeyPair{Qt::Key_Enter, kKeyEnter},
    KeyPair{Qt::Key_Shift, kKeyShift},
    KeyPair{Qt::Key_Control, kKeyControl},
    KeyPair{Qt::Key_Alt, kKeyAlt},
    KeyPair{Qt::Key_Pause, kKeyPause},
    KeyPair{Qt::Key_CapsLock, kKeyCapsLock},
    KeyPair{Qt::Key_Escape, kKeyEscape},
    KeyPair{Qt::Key_Space, kKeySpace},
    KeyPair{Qt::Key_PageUp, kKeyPageUp},
    KeyPair{Qt::Key_PageDown, kKeyPageDown},
    KeyPair{Qt::Key_End, kKeyEnd},
    KeyPair{Qt::Key_Home, kKeyHome},
    KeyPair{Qt::Key_Left, kKeyLeft},
    KeyPair{Qt::Key_Up, kKeyUp},
    KeyPair{Qt::Key_Right, kKeyRight},
    KeyPair{Qt::Key_Down, kKeyDown},
    KeyPair{Qt::Key_Print, kKeyPrintScreen},
    KeyPair{Qt::Key_Insert, kKeyInsert},
    KeyPair{Qt::Key_Delete, kKeyDelete},
    KeyPair{Qt::Key_Meta, kKeySystem},
    KeyPair{Qt::Key_Menu, kKeyMenu},
    KeyPair{Qt::Key_NumLock, kKeyNumLock},
    KeyPair{Qt::Key_ScrollLock, kKeyScrollLock},
    KeyPair{Qt::Key_Semicolon, kKeySemicolon},
    KeyPair{Qt::Key_Colon, kKeySemicolon},
    KeyPair{Qt::Key_Equal, kKeyEquals},
    KeyPair{Qt::Key_Plus, kKeyEquals},
    KeyPair{Qt::Key_Comma, kKeyComma},
    KeyPair{Qt::Key_Less, kKeyComma},
    KeyPair{Qt::Key_Minus, kKeyMinus},
    KeyPair{Qt::Key_Underscore, kKeyMinus},
    KeyPair{Qt::Key_Period, kKeyFullStop},
    KeyPair{Qt::Key_Greater, kKeyFullStop},
    KeyPair{Qt::Key_Slash, kKeySlash},
    KeyPair{Qt::Key_Question, kKeySlash},
    KeyPair{Qt::Key_QuoteLeft, kKeyBackquote},
    KeyPair{Qt::Key_AsciiTilde, kKeyBackquote},
    KeyPair{Qt::Key_BracketLeft, kKeyOpenBracket},
    KeyPair{Qt::Key_BraceLeft, kKeyOpenBracket},
    KeyPair{Qt::Key_Backslash, kKeyBackslash},
    KeyPair{Qt::Key_Bar, kKeyBackslash},
    KeyPair{Qt::Key_BracketRight, kKeyCloseBracket},
    KeyPair{Qt::Key_BraceRight, kKeyCloseBracket},
    KeyPair{Qt::Key_Apostrophe, kKeyQuote},
    KeyPair{Qt::Key_QuoteDbl, kKeyQuote},
    KeyPair{Qt::Key_Exclam, '1'},
    KeyPair{Qt::Key_At, '2'},
    KeyPair{Qt::Key_NumberSign, '3'},
    KeyPair{Qt::Key_Dollar, '4'},
    KeyPair{Qt::Key_Percent, '5'},
    KeyPair{Qt::Key_AsciiCircum, '6'},
    KeyPair{Qt::Key_Ampersand, '7'},
    KeyPair{Qt::Key_Asterisk, '8'},
    KeyPair{Qt::Key_ParenLeft, '9'},
    KeyPair{Qt::Key_ParenRight, '0'},
};

/// Keys of the number block have codes of their own.
std::int32_t KeypadCode(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return 96 + key - Qt::Key_0;
  switch (key) {
    case Qt::Key_Asterisk:
      return 106;
    case Qt::Key_Plus:
      return 107;
    case Qt::Key_Minus:
      return 109;
    case Qt::Key_Period:
    case Qt::Key_Comma:
      return 110;
    case Qt::Key_Slash:
      return 111;
    default:
      return 0;
  }
}

/// Of a key that gives a sign; nothing for another key, or without a layout to ask.
std::optional<std::int32_t> CodeByLayout(const QKeyEvent& event) {
  const bool sign = event.key() > Qt::Key_Space && event.key() < Qt::Key_Escape;
  if (!sign || event.nativeScanCode() == 0) return std::nullopt;
  const auto layout = KeyboardLayout::Now(event.nativeModifiers());
  if (!layout) return std::nullopt;
  return layout->CodeOf(event.nativeScanCode());
}

}  // namespace

std::int32_t VirtualKeyOf(const QKeyEvent& event) {
  const int key = event.key();
  if (event.modifiers().testFlag(Qt::KeypadModifier)) {
    if (const std::int32_t code = KeypadCode(key)) return code;
  }
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return key;
  if (const auto code = CodeByLayout(event)) return *code;
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return kKeyF1 + key - Qt::Key_F1;
  const auto found = std::ranges::find(kKeys, key, &KeyPair::qt);
  return found != kKeys.end() ? found->code : 0;
}

std::int32_t ShiftStateOf(Qt::KeyboardModifiers modifiers) {
  return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) + (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) +
         (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

std::int16_t MouseButtonOf(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return forms::kLeftButton;
    case Qt::RightButton:
      return forms::kRightButton;
    case Qt::MiddleButton:
      return forms::kMiddleButton;
    default:
      return 0;
  }
}

}  // namespace quorvane::desktop

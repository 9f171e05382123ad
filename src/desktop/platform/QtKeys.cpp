#include "desktop/platform/QtKeys.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <utility>

namespace quorvane::desktop {

namespace {

struct KeyPair {
  int qt;
  std::int32_t code;
};

constexpr std::array kKeys = {
    KeyPair{Qt::Key_Backspace, 8},
    KeyPair{Qt::Key_Tab, 9},
    KeyPair{Qt::Key_Backtab, 9},
    KeyPair{Qt::Key_Clear, 12},
    KeyPair{Qt::Key_Return, 13},
    KeyPair{Qt::Key_Enter, 13},
    KeyPair{Qt::Key_Shift, 16},
    KeyPair{Qt::Key_Control, 17},
    KeyPair{Qt::Key_Alt, 18},
    KeyPair{Qt::Key_Pause, 19},
    KeyPair{Qt::Key_CapsLock, 20},
    KeyPair{Qt::Key_Escape, 27},
    KeyPair{Qt::Key_Space, 32},
    KeyPair{Qt::Key_PageUp, 33},
    KeyPair{Qt::Key_PageDown, 34},
    KeyPair{Qt::Key_End, 35},
    KeyPair{Qt::Key_Home, 36},
    KeyPair{Qt::Key_Left, 37},
    KeyPair{Qt::Key_Up, 38},
    KeyPair{Qt::Key_Right, 39},
    KeyPair{Qt::Key_Down, 40},
    KeyPair{Qt::Key_Print, 44},
    KeyPair{Qt::Key_Insert, 45},
    KeyPair{Qt::Key_Delete, 46},
    KeyPair{Qt::Key_Meta, 91},
    KeyPair{Qt::Key_Menu, 93},
    KeyPair{Qt::Key_NumLock, 144},
    KeyPair{Qt::Key_ScrollLock, 145},
    KeyPair{Qt::Key_Semicolon, 186},
    KeyPair{Qt::Key_Colon, 186},
    KeyPair{Qt::Key_Equal, 187},
    KeyPair{Qt::Key_Plus, 187},
    KeyPair{Qt::Key_Comma, 188},
    KeyPair{Qt::Key_Less, 188},
    KeyPair{Qt::Key_Minus, 189},
    KeyPair{Qt::Key_Underscore, 189},
    KeyPair{Qt::Key_Period, 190},
    KeyPair{Qt::Key_Greater, 190},
    KeyPair{Qt::Key_Slash, 191},
    KeyPair{Qt::Key_Question, 191},
    KeyPair{Qt::Key_QuoteLeft, 192},
    KeyPair{Qt::Key_AsciiTilde, 192},
    KeyPair{Qt::Key_BracketLeft, 219},
    KeyPair{Qt::Key_BraceLeft, 219},
    KeyPair{Qt::Key_Backslash, 220},
    KeyPair{Qt::Key_Bar, 220},
    KeyPair{Qt::Key_BracketRight, 221},
    KeyPair{Qt::Key_BraceRight, 221},
    KeyPair{Qt::Key_Apostrophe, 222},
    KeyPair{Qt::Key_QuoteDbl, 222},
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

}  // namespace

std::int32_t VirtualKeyOf(const QKeyEvent& event) {
  const int key = event.key();
  if (event.modifiers().testFlag(Qt::KeypadModifier)) {
    if (const std::int32_t code = KeypadCode(key)) return code;
  }
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return 112 + key - Qt::Key_F1;
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
      return 1;
    case Qt::RightButton:
      return 2;
    case Qt::MiddleButton:
      return 4;
    default:
      return 0;
  }
}

}  // namespace quorvane::desktop

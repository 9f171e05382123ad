#include "windows/dialogs/KeyBox.h"

#include <imm.h>

#include "windows/controls/ThemeScope.h"
#include "windows/forms/Fonts.h"
#include "windows/forms/InputHook.h"

namespace quorvane::windows {

namespace {

bool IsPress(UINT message) {
  return message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
}

bool IsTab(WPARAM key) {
  return key == VK_TAB && (InputHook::HeldModifiers() & (chordtrap::kCtrl | chordtrap::kAlt)) == 0;
}

}  // namespace

/// An input method would keep the keys to itself.
KeyBox::KeyBox(HWND parent, int id) {
  const ThemeScope themed;
  Making making;
  making.control = L"EDIT";
  making.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_GROUP | ES_READONLY | ES_AUTOHSCROLL;
  making.extendedStyle = WS_EX_CLIENTEDGE;
  making.parent = parent;
  making.id = id;
  Create(making);
  ::SendMessageW(Handle(), WM_SETFONT, reinterpret_cast<WPARAM>(DialogFont()), TRUE);
  ::ImmAssociateContext(Handle(), nullptr);
}

bool KeyBox::TakeKey(const MSG& message) {
  if (message.hwnd != Handle() || IsTab(message.wParam)) return false;
  const auto key = static_cast<std::int32_t>(message.wParam);
  if (IsPress(message.message) && !chordtrap::IsModifierKey(key)) Pressed.Raise({key, InputHook::HeldModifiers()});
  return true;
}

/// A box that only shows something is gray otherwise.
bool KeyBox::OnReflected(UINT message, WPARAM wParam, LPARAM, LRESULT& result) {
  if (message != WM_CTLCOLORSTATIC) return false;
  ::SetBkColor(reinterpret_cast<HDC>(wParam), ::GetSysColor(COLOR_WINDOW));
  result = reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_WINDOW));
  return true;
}

LRESULT KeyBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_CONTEXTMENU) return 0;
  return Default(message, wParam, lParam);
}

}  // namespace quorvane::windows

#include "windows/controls/TabGround.h"

#include "windows/controls/ThemeScope.h"

namespace quorvane::windows {

namespace {

/// Not on every Windows: asked for where it is.
bool IsThemed() {
  using Ask = BOOL(WINAPI*)();
  const HMODULE library = ::GetModuleHandleW(L"uxtheme.dll");
  const FARPROC ask = library != nullptr ? ::GetProcAddress(library, "IsAppThemed") : nullptr;
  return ask != nullptr && ThemeScope::HasControls() && reinterpret_cast<Ask>(reinterpret_cast<void*>(ask))() != FALSE;
}

int GroundIndex() {
  return IsThemed() ? COLOR_WINDOW : COLOR_BTNFACE;
}

}  // namespace

COLORREF TabGroundColor() {
  return ::GetSysColor(GroundIndex());
}

HBRUSH TabGroundBrush() {
  return ::GetSysColorBrush(GroundIndex());
}

}  // namespace quorvane::windows

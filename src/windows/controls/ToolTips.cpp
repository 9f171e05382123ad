#include "windows/controls/ToolTips.h"

#include <commctrl.h>

#include "windows/controls/ThemeScope.h"

namespace quorvane::windows {

namespace {

constexpr LPARAM kWidestTip = 400;

}  // namespace

ToolTips::ToolTips(HWND owner) : owner_(owner) {
  const ThemeScope themed;
  Making making;
  making.control = TOOLTIPS_CLASSW;
  making.style = WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX;
  making.parent = owner;
  Create(making);
  ::SendMessageW(Handle(), TTM_SETMAXTIPWIDTH, 0, kWidestTip);
}

void ToolTips::Set(HWND control, const std::u16string& text) {
  std::u16string words = text;
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = owner_;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  const auto send = [&](UINT message) { ::SendMessageW(Handle(), message, 0, reinterpret_cast<LPARAM>(&tool)); };
  send(TTM_DELTOOLW);
  if (words.empty()) return;
  tool.lpszText = reinterpret_cast<wchar_t*>(words.data());
  send(TTM_ADDTOOLW);
}

}  // namespace quorvane::windows

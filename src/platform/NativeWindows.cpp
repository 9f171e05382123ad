#include "platform/NativeWindows.h"

#include "base/Error.h"

namespace quorvane {

namespace {

[[noreturn]] void Refuse(std::u16string_view call) {
  RaiseError(ErrorNumber::ActionNotSupported, u"This window system does not support " + std::u16string(call));
}

}  // namespace

void NativeWindows::ShowWindow(WindowHandle, std::int32_t) {
  Refuse(u"ShowWindow");
}

void NativeWindows::ShowWindowAsync(WindowHandle, std::int32_t) {
  Refuse(u"ShowWindowAsync");
}

void NativeWindows::SetWindowPos(WindowHandle, WindowHandle, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                                 std::uint32_t) {
  Refuse(u"SetWindowPos");
}

WindowHandle NativeWindows::GetTopWindow(WindowHandle) {
  Refuse(u"GetTopWindow");
}

WindowHandle NativeWindows::GetParent(WindowHandle) {
  Refuse(u"GetParent");
}

void NativeWindows::SetParent(WindowHandle, WindowHandle) {
  Refuse(u"SetParent");
}

WindowHandle NativeWindows::GetForegroundWindow() {
  Refuse(u"GetForegroundWindow");
}

std::u16string NativeWindows::GetWindowText(WindowHandle) {
  Refuse(u"GetWindowText");
}

ScreenPoint NativeWindows::GetCursorPos() {
  Refuse(u"GetCursorPos");
}

std::optional<ScreenRect> NativeWindows::GetWindowRect(WindowHandle) {
  Refuse(u"GetWindowRect");
}

std::uint32_t NativeWindows::GetSysColor(std::int32_t index) {
  constexpr std::uint32_t kWhite = 0xFFFFFF;
  constexpr std::uint32_t kBlue = 0xD77800;
  switch (index) {
    case kWindowColor:
    case kHighlightTextColor:
      return kWhite;
    case kHighlightColor:
      return kBlue;
    default:
      return 0;
  }
}

}  // namespace quorvane

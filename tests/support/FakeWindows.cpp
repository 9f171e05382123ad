#include "support/FakeWindows.h"

namespace quorvane::test {

template <class... Args>
void FakeWindows::Note(const char* name, Args... args) {
  std::string call = name;
  ((call += ' ' + std::to_string(args)), ...);
  Calls.push_back(call);
}

WindowHandle FakeWindows::FindWindow(std::u16string_view className, std::u16string_view windowName) {
  return FindWindowEx(0, className, windowName);
}

WindowHandle FakeWindows::FindWindowEx(WindowHandle parent, std::u16string_view className,
                                       std::u16string_view windowName) {
  for (const auto& [handle, entry] : Windows) {
    if (entry.parent == parent && entry.className == className && entry.title == windowName) return handle;
  }
  return 0;
}

std::int32_t FakeWindows::SendMessage(WindowHandle window, std::uint32_t message, std::int32_t wParam,
                                      std::int32_t lParam) {
  Note("SendMessage", window, message, wParam, lParam);
  return Answer;
}

void FakeWindows::ShowWindow(WindowHandle window, std::int32_t command) {
  Note("ShowWindow", window, command);
}

void FakeWindows::ShowWindowAsync(WindowHandle window, std::int32_t command) {
  Note("ShowWindowAsync", window, command);
}

void FakeWindows::SetWindowPos(WindowHandle window, WindowHandle insertAfter, std::int32_t x, std::int32_t y,
                               std::int32_t width, std::int32_t height, std::uint32_t flags) {
  Note("SetWindowPos", window, insertAfter, x, y, width, height, flags);
}

WindowHandle FakeWindows::GetTopWindow(WindowHandle window) {
  for (const auto& [handle, entry] : Windows) {
    if (entry.parent == window) return handle;
  }
  return 0;
}

WindowHandle FakeWindows::GetParent(WindowHandle window) {
  const auto found = Windows.find(window);
  return found == Windows.end() ? 0 : found->second.parent;
}

void FakeWindows::SetParent(WindowHandle child, WindowHandle newParent) {
  Note("SetParent", child, newParent);
}

std::u16string FakeWindows::GetWindowText(WindowHandle window) {
  const auto found = Windows.find(window);
  return found == Windows.end() ? std::u16string() : found->second.title;
}

std::optional<ScreenRect> FakeWindows::GetWindowRect(WindowHandle window) {
  const auto found = Windows.find(window);
  if (found == Windows.end()) return std::nullopt;
  return found->second.rect;
}

}  // namespace quorvane::test

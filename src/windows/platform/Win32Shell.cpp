#include "windows/platform/Win32Shell.h"

#include "windows/com/Win32.h"
//
#include <shellapi.h>
#undef ShellExecute

#include <algorithm>
#include <cstdint>

#include "base/Error.h"
#include "base/Text.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

namespace {

constexpr std::intptr_t kStarted = 32;  // above this the program runs

bool IsAddress(std::u16string_view address) {
  constexpr std::u16string_view kSchemes[] = {u"http:", u"https:", u"mailto:"};
  return std::ranges::any_of(kSchemes, [&](std::u16string_view scheme) {
    return EqualsNoCaseAscii(address.substr(0, scheme.size()), scheme);
  });
}

}  // namespace

void Win32Shell::OpenAddress(const std::u16string& address) {
  if (!IsAddress(address)) RaiseError(ErrorNumber::InvalidProcedureCall, u"No address: " + address);
  const HINSTANCE answer = ::ShellExecuteW(nullptr, L"open", Wide(address), nullptr, nullptr, SW_SHOWNORMAL);
  if (reinterpret_cast<std::intptr_t>(answer) > kStarted) return;
  RaiseError(ErrorNumber::InvalidProcedureCall, u"There is no program to open " + address);
}

}  // namespace quorvane::windows

#include "windows/controls/ThemeScope.h"

#include <commctrl.h>

#include <string>
#include <utility>

#include "windows/forms/Window.h"

namespace quorvane::windows {

namespace {

constexpr WORD kManifestOfModule = 2;
constexpr DWORD kLongestPath = 32768;

HANDLE context = nullptr;
bool asked = false;

HANDLE MakeContext() {
  std::wstring path(kLongestPath, L'\0');
  const DWORD length = ::GetModuleFileNameW(Instance(), path.data(), kLongestPath);
  if (length == 0 || length == kLongestPath) return nullptr;
  ACTCTXW wanted{};
  wanted.cbSize = sizeof(wanted);
  wanted.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
  wanted.lpSource = path.c_str();
  wanted.hModule = Instance();
  wanted.lpResourceName = MAKEINTRESOURCEW(kManifestOfModule);
  const HANDLE made = ::CreateActCtxW(&wanted);
  return made == INVALID_HANDLE_VALUE ? nullptr : made;
}

void LoadControls() {
  const INITCOMMONCONTROLSEX wanted{sizeof(wanted), ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  if (!::InitCommonControlsEx(&wanted)) ::InitCommonControls();
}

}  // namespace

ThemeScope::ThemeScope() {
  const bool first = !std::exchange(asked, true);
  if (first) context = MakeContext();
  if (context != nullptr && !::ActivateActCtx(context, &cookie_)) cookie_ = 0;
  if (first) LoadControls();
}

ThemeScope::~ThemeScope() {
  if (cookie_ != 0) ::DeactivateActCtx(0, cookie_);
}

bool ThemeScope::HasControls() {
  return context != nullptr;
}

void ThemeScope::Forget() {
  if (context != nullptr) ::ReleaseActCtx(context);
  context = nullptr;
  asked = false;
}

}  // namespace quorvane::windows

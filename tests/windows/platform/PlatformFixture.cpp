#include "windows/platform/PlatformFixture.h"

namespace quorvane::test {

namespace {

constexpr DWORD kPatience = 2000;

}  // namespace

void PlatformFixture::PumpAll() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

bool PlatformFixture::Pump(const std::function<bool()>& done) {
  const DWORD begin = ::GetTickCount();
  while (!done()) {
    if (::GetTickCount() - begin > kPatience) return false;
    PumpAll();
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
  }
  return true;
}

}  // namespace quorvane::test

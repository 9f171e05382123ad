#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "windows/forms/Window.h"
#include "windows/platform/WindowsPlatform.h"

namespace quorvane::test {

/// A plain window of a test, which counts nothing and does what it is told.
class TestWindow : public windows::Window {
 public:
  explicit TestWindow(DWORD style = WS_OVERLAPPEDWINDOW, const wchar_t* control = nullptr, HWND parent = nullptr) {
    Making making;
    making.control = control;
    making.style = style;
    making.parent = parent;
    making.place = {0, 0, 300, 200};
    Create(making);
  }
};

/// The platform itself, and a loop such as a host's, which knows nothing of ours.
class PlatformFixture : public ::testing::Test {
 protected:
  /// Handles messages until `done`, for two seconds at most; false when that was too short.
  static bool Pump(const std::function<bool()>& done);
  /// Handles all that waits.
  static void PumpAll();

  windows::WindowsPlatform platform;
};

}  // namespace quorvane::test

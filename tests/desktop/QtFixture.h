#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>

class QApplication;

namespace quorvane::desktop {

/// The toolkit's application object, one for the whole program, without a screen unless the environment names one.
QApplication& TheApplication();

/// A test with the toolkit running.
class QtTest : public ::testing::Test {
 protected:
  QtTest() { TheApplication(); }

  /// Lets events happen until `done` gives true or the time is over; gives what `done` gave last.
  static bool WaitUntil(const std::function<bool()>& done, std::chrono::milliseconds limit);
};

}  // namespace quorvane::desktop

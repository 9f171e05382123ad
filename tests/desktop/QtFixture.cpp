#include "QtFixture.h"

#include <QApplication>
#include <QDeadlineTimer>

namespace quorvane::desktop {

QApplication& TheApplication() {
  static int count = 1;
  static char name[] = "test_desktop";
  static char* arguments[] = {name, nullptr};
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  // It lives to the very end: what belongs to it may go later than any object here.
  static auto* application = new QApplication(count, arguments);
  return *application;
}

bool QtTest::WaitUntil(const std::function<bool()>& done, std::chrono::milliseconds limit) {
  const QDeadlineTimer deadline(limit);
  while (!done()) {
    if (deadline.hasExpired()) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  return true;
}

}  // namespace quorvane::desktop

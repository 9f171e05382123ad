#include "desktop/platform/QtMessageLoop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace quorvane::desktop {

namespace {

using namespace std::chrono_literals;

constexpr auto kShortestPause = 10ms;
constexpr auto kLongestPause = 50ms;
constexpr int kPauseByCost = 4;

}  // namespace

QtMessageLoop::QtMessageLoop() = default;
QtMessageLoop::~QtMessageLoop() = default;

void QtMessageLoop::DoEvents() {
  const Clock::time_point begin = Clock::now();
  if (begin < nextYield_) return;
  QCoreApplication::processEvents();
  const Clock::time_point end = Clock::now();
  nextYield_ = end + std::clamp<Clock::duration>((end - begin) * kPauseByCost, kShortestPause, kLongestPause);
}

void QtMessageLoop::WaitWhile(const std::function<bool()>& waiting) {
  // A loop of the toolkit's own, so that what it deletes later is what was given up inside, never what the callers
  // around still use.
  QEventLoop loop;
  const auto look = [&] {
    if (!waiting()) loop.quit();
  };
  const QAbstractEventDispatcher* turns = QAbstractEventDispatcher::instance();
  QObject::connect(turns, &QAbstractEventDispatcher::aboutToBlock, &loop, look);
  QObject::connect(turns, &QAbstractEventDispatcher::awake, &loop, look);
  if (waiting() && !QCoreApplication::closingDown()) loop.exec();
}

MessageLoop::TimerId QtMessageLoop::StartTimer(std::int32_t milliseconds, std::function<void()> tick) {
  auto timer = std::make_unique<QTimer>();
  QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(tick));
  timer->start(std::chrono::milliseconds(milliseconds));
  timers_.emplace(++lastTimer_, std::move(timer));
  return lastTimer_;
}

void QtMessageLoop::StopTimer(TimerId timer) {
  const auto found = timers_.find(timer);
  if (found == timers_.end()) return;
  QTimer* stopped = found->second.release();  // it may be the one whose tick is running
  timers_.erase(found);
  stopped->stop();
  stopped->disconnect();
  stopped->deleteLater();
}

}  // namespace quorvane::desktop

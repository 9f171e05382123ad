#pragma once

#include <QObject>
#include <QTimer>
#include <functional>
#include <utility>

namespace quorvane::desktop {

/// Does one thing from the event loop, once for however many times it was asked to: a model that changes thousands of
/// times a second is shown as often as events are handled.
class Later final : public QObject {
 public:
  explicit Later(std::function<void()> action) : action_(std::move(action)) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, [this] { action_(); });
  }

  void Ask() {
    if (!timer_.isActive()) timer_.start(0);
  }
  /// At once, when it was asked for.
  void Now() {
    if (!timer_.isActive()) return;
    timer_.stop();
    action_();
  }

 private:
  std::function<void()> action_;
  QTimer timer_;
};

}  // namespace quorvane::desktop

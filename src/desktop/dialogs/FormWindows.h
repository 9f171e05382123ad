#pragma once

#include <memory>
#include <unordered_map>

#include "base/Event.h"

class QWidget;

namespace quorvane::forms {
class Form;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

class FormWindow;
class QtWindows;
class ViewFactory;

/// A window for each open form that has a view.
class FormWindows {
 public:
  /// All three outlive this. The windows belong to `owner`.
  FormWindows(const ViewFactory& views, QtWindows& windows, QWidget& owner);
  ~FormWindows();

  /// Null for a form without a window.
  FormWindow* WindowOf(const forms::Form& form) const;

 private:
  void Open(forms::Form& form);
  void Close(forms::Form& form);

  const ViewFactory& views_;
  QtWindows& windows_;
  QWidget& owner_;
  std::unordered_map<const forms::Form*, std::unique_ptr<FormWindow>> shown_;
  Subscription opened_;
  Subscription closed_;
};

}  // namespace desktop
}  // namespace quorvane

#pragma once

#include <memory>
#include <unordered_map>

#include "base/Event.h"

class QWidget;

namespace quorvane {

class Form;

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

  /// Nothing for a form without a window.
  FormWindow* WindowOf(const Form& form) const;

 private:
  void Open(Form& form);
  void Close(Form& form);

  const ViewFactory& views_;
  QtWindows& windows_;
  QWidget& owner_;
  std::unordered_map<const Form*, std::unique_ptr<FormWindow>> shown_;
  Subscription opened_;
  Subscription closed_;
};

}  // namespace desktop
}  // namespace quorvane

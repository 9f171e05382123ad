#pragma once

#include <memory>
#include <vector>

#include "addin/core/Guarded.h"
#include "base/Event.h"
#include "platform/forms/Dialog.h"

namespace quorvane {

/// A dialog of the add-in: a failure in the handler of an event is shown to the user and goes no further.
class FramedDialog : public forms::Dialog {
 public:
  using forms::Dialog::Dialog;
  ~FramedDialog() override;

 protected:
  /// Runs the body of a handler.
  template <class Body>
  void Framed(Body body);
  /// Subscribes such a body for the life of the dialog.
  template <class Raised, class Body>
  void On(Raised& event, Body body);

 private:
  std::vector<Subscription> controlEvents_;
};

template <class Body>
void FramedDialog::Framed(Body body) {
  const auto self = weak_from_this().lock();  // the body may unload the form; nothing while it is being made
  Guarded(body);
}

template <class Raised, class Body>
void FramedDialog::On(Raised& event, Body body) {
  controlEvents_.push_back(event.Subscribe([this, body](auto&&... args) { Framed([&] { body(args...); }); }));
}

}  // namespace quorvane

#include "windows/forms/FormWindows.h"

#include <utility>

#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "windows/forms/FormWindow.h"
#include "windows/forms/Monitor.h"

namespace quorvane::windows {

FormWindows::FormWindows(const ViewFactory& views) : views_(views) {
  opened_ = forms::TheForms().Opened.Subscribe([this](forms::Form& form) { Open(form); });
  closed_ = forms::TheForms().Closed.Subscribe([this](forms::Form& form) { Close(form); });
}

FormWindows::~FormWindows() {
  for (auto& [form, window] : shown_) window->Retire();
}

FormWindow* FormWindows::WindowOf(const forms::Form& form) const {
  const auto found = shown_.find(&form);
  return found != shown_.end() ? found->second.get() : nullptr;
}

void FormWindows::Open(forms::Form& form) {
  TellForms(MonitorOf(owner_));
  shown_[&form] = std::make_unique<FormWindow>(form.shared_from_this(), views_, owner_);
}

/// The form may close from inside one of its window's own messages.
void FormWindows::Close(forms::Form& form) {
  const auto found = shown_.find(&form);
  if (found == shown_.end()) return;
  std::unique_ptr<FormWindow> closed = std::move(found->second);
  shown_.erase(found);
  closed->Retire();
  Window::Bury(std::move(closed));
}

}  // namespace quorvane::windows

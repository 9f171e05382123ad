#include "desktop/dialogs/FormWindows.h"

#include <QWidget>

#include "desktop/controls/ScreenAt.h"
#include "desktop/dialogs/FormWindow.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"

namespace quorvane::desktop {

FormWindows::FormWindows(const ViewFactory& views, QtWindows& windows, QWidget& owner)
    : views_(views), windows_(windows), owner_(owner) {
  opened_ = forms::TheForms().Opened.Subscribe([this](forms::Form& form) { Open(form); });
  closed_ = forms::TheForms().Closed.Subscribe([this](forms::Form& form) { Close(form); });
}

FormWindows::~FormWindows() = default;

FormWindow* FormWindows::WindowOf(const forms::Form& form) const {
  const auto found = shown_.find(&form);
  return found != shown_.end() ? found->second.get() : nullptr;
}

void FormWindows::Open(forms::Form& form) {
  TellForms(*owner_.screen(), owner_);
  auto window = std::make_unique<FormWindow>(form.shared_from_this(), views_, windows_, &owner_);
  shown_[&form] = std::move(window);
}

/// The form may close from inside one of its window's own events.
void FormWindows::Close(forms::Form& form) {
  const auto found = shown_.find(&form);
  if (found == shown_.end()) return;
  found->second->hide();
  found->second.release()->deleteLater();
  shown_.erase(found);
}

}  // namespace quorvane::desktop

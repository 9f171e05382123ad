#include "platform/forms/CommandButton.h"

#include "base/FlagScope.h"

namespace quorvane::forms {

void CommandButton::Press() {
  if (!Enabled() || !Visible()) return;
  const std::shared_ptr<bool> kept = pressed_;  // a handler may destroy the button
  const FlagScope held(*kept);
  bool heldBack = false;
  Pressing.Raise(heldBack);
  if (!heldBack) Click.Raise();
}

}  // namespace quorvane::forms

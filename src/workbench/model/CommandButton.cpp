#include "workbench/model/CommandButton.h"

#include "workbench/model/HostCommandBar.h"

namespace quorvane::workbench {

void CommandButton::SetCaption(const std::u16string& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  Changed.Raise();
}

void CommandButton::SetVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  Changed.Raise();
}

void CommandButton::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  Changed.Raise();
}

void CommandButton::Delete() {
  const auto self = shared_from_this();  // the bar may hold the last reference
  const std::shared_ptr<HostCommandBar> bar = bar_.lock();
  bar_.reset();
  if (bar) bar->Remove(*this);
}

void CommandButton::Click() {
  if (bar_.expired() || !visible_ || !enabled_) return;
  bool handled = false;
  bool cancelDefault = false;
  const std::shared_ptr<vbide::CommandBarControl> self = shared_from_this();
  Clicks()->Click.Raise(self, handled, cancelDefault);
}

std::shared_ptr<vbide::CommandBarEvents> CommandButton::Clicks() {
  if (!clicks_) clicks_ = std::make_shared<vbide::CommandBarEvents>();
  return clicks_;
}

}  // namespace quorvane::workbench

#include "workbench/model/HostCommandBar.h"

#include "base/Error.h"

namespace quorvane::workbench {

namespace {

constexpr std::int32_t kButton = 1;

}  // namespace

std::shared_ptr<vbide::CommandBarControl> HostCommandBar::AddControl(std::int32_t type) {
  if (type != kButton) RaiseError(ErrorNumber::InvalidProcedureCall);
  const auto button = buttons_.emplace_back(std::make_shared<CommandButton>(weak_from_this()));
  Changed.Raise();
  return button;
}

void HostCommandBar::Remove(const CommandButton& button) {
  if (std::erase_if(buttons_, [&](const auto& held) { return held.get() == &button; }) > 0) Changed.Raise();
}

}  // namespace quorvane::workbench

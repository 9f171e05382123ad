#include "workbench/HostEvents.h"

#include "base/Error.h"
#include "workbench/CommandButton.h"

namespace quorvane::workbench {

std::shared_ptr<vbide::CommandBarEvents> HostEvents::CommandBarEvents(
    const std::shared_ptr<vbide::CommandBarControl>& control) {
  Deref(control);
  const auto button = std::dynamic_pointer_cast<CommandButton>(control);
  if (!button) RaiseError(ErrorNumber::InvalidProcedureCall);
  return button->Clicks();
}

}  // namespace quorvane::workbench

#include "workbench/model/HostEvents.h"

#include "base/Error.h"
#include "workbench/model/CommandButton.h"

namespace quorvane::workbench {

std::shared_ptr<vbide::CommandBarEvents> HostEvents::CommandBarEvents(
    const std::shared_ptr<vbide::CommandBarControl>& control) {
  Deref(control);
  const auto button = std::dynamic_pointer_cast<CommandButton>(control);
  if (!button) RaiseError(ErrorNumber::InvalidProcedureCall);
  return button->Clicks();
}

}  // namespace quorvane::workbench

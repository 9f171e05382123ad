#pragma once

#include <memory>

#include "vbide/VBIDE.h"

namespace quorvane::workbench {

/// The host's sources of events.
class HostEvents final : public vbide::Events {
 public:
  /// The same source at each call for one control. Error 91 for nothing, 5 for a control of another host.
  std::shared_ptr<vbide::CommandBarEvents> CommandBarEvents(
      const std::shared_ptr<vbide::CommandBarControl>& control) override;
};

}  // namespace quorvane::workbench

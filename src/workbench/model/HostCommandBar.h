#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Event.h"
#include "vbide/VBIDE.h"
#include "workbench/model/CommandButton.h"

namespace quorvane::workbench {

/// One menu: its buttons from top to bottom.
class HostCommandBar final : public vbide::CommandBar, public std::enable_shared_from_this<HostCommandBar> {
 public:
  explicit HostCommandBar(std::u16string name) : name_(std::move(name)) {}

  const std::u16string& Name() const { return name_; }
  const std::vector<std::shared_ptr<CommandButton>>& Buttons() const { return buttons_; }

  /// Raises error 5 for any type but 1.
  std::shared_ptr<vbide::CommandBarControl> AddControl(std::int32_t type) override;
  void Remove(const CommandButton& button);

  Event<> Changed;  ///< a button came or went

 private:
  std::u16string name_;
  std::vector<std::shared_ptr<CommandButton>> buttons_;
};

}  // namespace quorvane::workbench

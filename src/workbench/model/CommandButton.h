#pragma once

#include <memory>
#include <string>
#include <utility>

#include "base/Event.h"
#include "vbide/VBIDE.h"

namespace quorvane::workbench {

class HostCommandBar;

/// One entry of a menu.
class CommandButton final : public vbide::CommandBarControl, public std::enable_shared_from_this<CommandButton> {
 public:
  explicit CommandButton(std::weak_ptr<HostCommandBar> bar) : bar_(std::move(bar)) {}

  const std::u16string& Caption() const { return caption_; }
  void SetCaption(const std::u16string& caption) override;
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) override;
  bool Enabled() const override { return enabled_; }
  void SetEnabled(bool enabled);
  /// Takes the button off its bar. A button that is off already stays so.
  void Delete() override;

  /// The user's click: raises Click of Clicks() when the button is on its bar, visible and enabled.
  void Click();
  /// The one source of this button's clicks.
  std::shared_ptr<vbide::CommandBarEvents> Clicks();

  Event<> Changed;  ///< caption, visible or enabled

 private:
  std::weak_ptr<HostCommandBar> bar_;
  std::u16string caption_;
  bool visible_ = true;
  bool enabled_ = true;
  std::shared_ptr<vbide::CommandBarEvents> clicks_;
};

}  // namespace quorvane::workbench

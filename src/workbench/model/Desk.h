#pragma once

#include <memory>
#include <vector>

#include "base/Event.h"
#include "platform/NativeWindows.h"
#include "workbench/text/TurnClock.h"

namespace quorvane::workbench {

class Pane;

/// What the objects of one workbench share and what lives as long as the last of them: the clock of the undo steps and
/// the order of the code panes. The active pane is the frontmost one whose window is visible.
class Desk {
 public:
  TurnClock Clock;

  WindowHandle NewHandle() { return nextHandle_++; }

  /// A new pane lies behind the others.
  void Add(const std::shared_ptr<Pane>& pane);
  void Remove(const Pane& pane);
  /// Does nothing with a pane that was removed; false then.
  bool BringForward(const Pane& pane);

  /// The open panes, the frontmost first, visible or not.
  std::vector<std::shared_ptr<Pane>> Panes() const;
  /// Null when no pane is visible.
  std::shared_ptr<Pane> ActivePane() const;

  /// Called when the order or the visibility may have changed; raises ActivePaneChanged when they did.
  void Refresh();

  Event<> ActivePaneChanged;

 private:
  std::vector<std::weak_ptr<Pane>> panes_;
  std::weak_ptr<Pane> active_;  ///< as last told by ActivePaneChanged
  WindowHandle nextHandle_ = 1;
};

}  // namespace quorvane::workbench

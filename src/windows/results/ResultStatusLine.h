#pragma once

#include <memory>
#include <string>

#include "base/Event.h"
#include "windows/controls/Soon.h"
#include "windows/forms/Window.h"

namespace quorvane::forms {
class Label;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

class ToolTips;

/// The status line above a result list, which may change with every match of a running task. A text that is too long
/// for its room is cut, and its tool tip tells it in full.
class ResultStatusLine final : public Window {
 public:
  /// Hidden in `parent`; `tips` outlives this.
  ResultStatusLine(std::shared_ptr<forms::Label> label, HWND parent, ToolTips& tips);
  ~ResultStatusLine() override;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Follow();
  void FollowTip();
  bool IsCut() const;
  void OnGone();

  std::shared_ptr<forms::Label> label_;
  ToolTips& tips_;
  std::u16string tip_;  ///< as it was given last
  Soon follow_;
  Subscription changed_;
};

}  // namespace quorvane::windows

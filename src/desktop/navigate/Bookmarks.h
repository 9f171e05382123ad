#pragma once

#include <QTimer>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "base/Event.h"
#include "desktop/navigate/LineAnchor.h"

namespace quorvane {

namespace workbench {
class Component;
class Module;
class Workbench;
}  // namespace workbench

namespace desktop {

class CodeArea;

/// Lines that the user marked to come back to. They stay with their text when it is edited, and show in the margin.
class Bookmarks {
 public:
  /// Both outlive this.
  Bookmarks(workbench::Workbench& workbench, CodeArea& code);

  /// Marks the line of the caret, or takes its mark away.
  void Toggle();
  /// To the next (1) or previous (-1) marked line, in the order of projects and modules; around at the end. False when
  /// no line is marked.
  bool Step(int step);
  /// 1-based, ascending.
  std::vector<std::int32_t> LinesOf(const workbench::Module& module);

 private:
  using Place = std::pair<std::shared_ptr<workbench::Component>, std::int32_t>;

  void Spread();

  workbench::Workbench& workbench_;
  CodeArea& code_;
  QTimer soon_;
  std::vector<LineAnchor> marks_;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane

#pragma once

#include <QMdiArea>
#include <map>
#include <memory>
#include <vector>

#include "base/Event.h"
#include "platform/NativeWindows.h"

namespace quorvane {

namespace workbench {
class Pane;
class Workbench;
}  // namespace workbench

namespace desktop {

class CodeWindow;
class QtWindows;
class Texts;

/// The client area: a window for each code pane that is visible, the workbench's active pane in front. Follows the
/// workbench and hands the user's choice of a window back to it.
class CodeArea final : public QMdiArea {
 public:
  /// All three outlive this.
  CodeArea(workbench::Workbench& workbench, QtWindows& windows, const Texts& texts);
  ~CodeArea() override;

  /// Null when no code window is in front.
  CodeWindow* Current() const;
  std::vector<CodeWindow*> CodeWindows() const;

  void SetTabs(bool tabs);
  bool HasTabs() const { return viewMode() == TabbedView; }
  /// In points.
  void SetTextSize(int size);
  int TextSize() const { return textSize_; }
  static int NormalTextSize();

  /// After a save: the modified marks as they are now.
  void UpdateTitles();

  Event<CodeWindow&> Opened;        ///< a window came, before it is shown
  Event<> CurrentChanged;           ///< another window in front, or its cursor moved
  Event<const QPoint&> MenuWanted;  ///< the menu of the editor in front, at this place of the screen

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Sync();
  CodeWindow* FollowPanes();
  void Watch(const std::shared_ptr<workbench::Pane>& pane);
  void FollowPane(workbench::Pane& pane);
  CodeWindow* Open(const std::shared_ptr<workbench::Pane>& pane);
  CodeWindow* WindowOf(const workbench::Pane& pane) const;
  void Activated(QMdiSubWindow* window);
  void Reveal(WindowHandle handle);

  workbench::Workbench& workbench_;
  QtWindows& windows_;
  const Texts& texts_;
  int textSize_;
  bool syncing_ = false;
  std::map<const workbench::Pane*, Subscription> watched_;
  Subscription paneChanged_;
  Subscription projectsChanged_;
  Subscription broughtForward_;
};

}  // namespace desktop
}  // namespace quorvane

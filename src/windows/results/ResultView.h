#pragma once

#include <map>
#include <memory>
#include <vector>

#include "base/Event.h"
#include "windows/controls/MenuView.h"
#include "windows/controls/Soon.h"
#include "windows/controls/ToolTips.h"
#include "windows/forms/View.h"
#include "windows/forms/Window.h"

namespace quorvane::forms {
class Control;
}  // namespace quorvane::forms

namespace quorvane {
class ResultDialog;
}  // namespace quorvane

namespace quorvane::windows {

class ResultListView;
class ResultTabBar;
class ResultViewMemory;
class ViewFactory;

/// The document of the result tool window: the tab bar, below it the panel of the selected tab with its status line and
/// list, and both menus. A panel's controls lie where the page has put them.
class ResultView final : public Window, public View {
 public:
  /// Hidden in `parent`. The document outlives this.
  ResultView(ResultDialog& document, HWND parent, std::shared_ptr<ResultViewMemory> memory);
  ~ResultView() override;

  /// The view of each ResultDialog from now on.
  static void Register(ViewFactory& views);

  HWND Handle() const override { return Window::Handle(); }
  SIZE WantedSize() const override;
  /// To the list, where there is one.
  void TakeFocus() override;

  ResultTabBar& Bar() { return *bar_; }
  /// The list of the visible panel; nothing when there is none.
  ResultListView* CurrentList() const;

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  class Panel;
  struct Shown {
    std::shared_ptr<forms::Control> control;
    std::unique_ptr<Window> window;  ///< none before the control has a container
    std::vector<Subscription> subscriptions;
  };

  void Add(const forms::Control& control);
  void Remove(const forms::Control& control);
  void Follow(Shown& shown);
  std::unique_ptr<Window> Make(Shown& shown);
  std::unique_ptr<Window> MakeList(Shown& shown, HWND container);
  const Shown* Find(const forms::Control* control) const;
  std::u16string NameOfList(const forms::Control& list) const;
  void Layout();
  void FitPanels();
  void MoveFocusOn();
  void FollowFocus();
  void OnMenuKey();
  void OnGone();

  ResultDialog& document_;
  std::shared_ptr<ResultViewMemory> memory_;
  MenuView resultMenu_;
  MenuView tabMenu_;
  std::unique_ptr<ToolTips> tips_;
  std::unique_ptr<ResultTabBar> bar_;
  std::map<const forms::Control*, std::unique_ptr<Shown>> shown_;
  bool barChosen_ = false;  ///< the user has put the focus on the bar
  Soon fit_;
  std::vector<Subscription> subscriptions_;
};

}  // namespace quorvane::windows

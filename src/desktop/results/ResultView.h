#pragma once

#include <QWidget>
#include <map>
#include <memory>
#include <vector>

#include "base/Event.h"
#include "desktop/controls/Later.h"
#include "desktop/controls/MenuView.h"

class QToolButton;

namespace quorvane::forms {
class Control;
}  // namespace quorvane::forms

namespace quorvane {

class ResultDialog;

namespace desktop {

class QtWindows;
class ResultListView;
class TabBarView;

/// The document of the result tool window: the tab bar, below it the panel of the selected tab with its status line and
/// list, and both menus. A panel's controls lie where the page has put them.
class ResultView final : public QWidget {
 public:
  /// Both outlive this.
  ResultView(ResultDialog& document, QtWindows& windows, QWidget* parent);
  ~ResultView() override;

  TabBarView& Bar() { return *bar_; }
  /// The list of the visible panel; null when there is none.
  ResultListView* CurrentList() const;

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Shown {
    std::shared_ptr<forms::Control> control;
    QWidget* widget = nullptr;  ///< none before the control has a container
    Subscription changed;
  };

  void Add(const forms::Control& control);
  void Remove(const forms::Control& control);
  void Follow(Shown& shown);
  QWidget* Make(const std::shared_ptr<forms::Control>& control);
  QWidget* WidgetOf(const forms::Control* control) const;
  void FitPanels();
  QLayout* MakeHead();
  void NameAdd();
  QRect PlaceOf(const forms::Control& control, const QWidget& widget) const;
  void FollowFocus();

  ResultDialog& document_;
  QtWindows& windows_;
  MenuView resultMenu_;
  MenuView tabMenu_;
  TabBarView* bar_;
  QToolButton* add_;  ///< makes a page while the tab for that is out of sight
  QWidget* pages_;
  std::map<const forms::Control*, std::unique_ptr<Shown>> shown_;
  std::vector<Subscription> subscriptions_;
  Later fit_;
  bool wasShown_ = false;
};

}  // namespace desktop
}  // namespace quorvane

#pragma once

#include <QTabBar>
#include <memory>
#include <vector>

#include "base/Event.h"
#include "desktop/controls/Later.h"

namespace quorvane::forms {
class Tab;
class TabControl;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// The bar of a tab control: its tabs with their pictures, close buttons and tool tips. What the user does with it goes
/// to the control, and the bar shows what came of it.
class TabBarView final : public QTabBar {
 public:
  /// The control outlives this.
  TabBarView(forms::TabControl& control, QWidget* parent);
  ~TabBarView() override;

  /// The tabs have no room beside each other, so that some are out of sight.
  bool Crowded() const { return crowded_; }
  Event<> CrowdedChanged;
  /// What a click on the last tab does, and its picture.
  void PressLast();
  QIcon IconOfLast() const;

 protected:
  void tabLayoutChange() override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  QSize tabSizeHint(int index) const override;
  QSize minimumTabSizeHint(int index) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void Follow();
  void Select(const std::shared_ptr<forms::Tab>& tab);
  void LookAtRoom();
  void FollowTab(int index, const forms::Tab& tab);
  void FollowCloseButton(int index, const forms::Tab& tab);
  std::shared_ptr<forms::Tab> TabUnder(const QMouseEvent& event) const;

  forms::TabControl& control_;
  std::vector<std::shared_ptr<forms::Tab>> shown_;  ///< as they stand on this bar
  std::weak_ptr<forms::Tab> pressed_;               ///< by the last press of the left button
  bool busy_ = false;
  bool crowded_ = false;
  Later follow_;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane

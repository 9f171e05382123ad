#pragma once

#include <QAbstractButton>

namespace quorvane::desktop {

/// The cross of a tab, drawn as the style draws those of the code windows' tabs.
class TabCloseButton final : public QAbstractButton {
 public:
  explicit TabCloseButton(QWidget* parent);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void FollowLanguage();
};

}  // namespace quorvane::desktop

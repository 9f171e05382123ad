#include "desktop/controls/CheckView.h"

#include "desktop/controls/AccessKey.h"
#include "desktop/controls/ControlFollow.h"
#include "desktop/platform/QtText.h"
#include "platform/forms/CheckBox.h"

namespace quorvane::desktop {

CheckView::CheckView(forms::CheckBox& box, QWidget* parent) : QCheckBox(parent), box_(box) {
  changed_ = box.Changed.Subscribe([this] { Follow(); });
  connect(this, &QCheckBox::clicked, this, [this] {
    box_.Press();
    Follow();
  });
  Follow();
}

bool CheckView::event(QEvent* event) {
  return ClickByKey(*this, *event) || QCheckBox::event(event);
}

void CheckView::Follow() {
  constexpr Qt::CheckState kStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
  setText(ToQString(box_.Caption()));
  setCheckState(kStates[box_.Value()]);
  FollowCaptioned(*this, box_);
}

}  // namespace quorvane::desktop

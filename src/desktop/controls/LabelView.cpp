#include "desktop/controls/LabelView.h"

#include "desktop/controls/ControlFollow.h"
#include "desktop/platform/QtText.h"
#include "platform/forms/Label.h"

namespace quorvane::desktop {

LabelView::LabelView(forms::Label& label, QWidget* parent) : QLabel(parent) {
  const auto follow = [this, &label] {
    setText(ToQString(label.Caption()));
    FollowCaptioned(*this, label);
  };
  changed_ = label.Changed.Subscribe(follow);
  follow();
}

}  // namespace quorvane::desktop

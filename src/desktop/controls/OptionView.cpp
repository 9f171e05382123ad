#include "desktop/controls/OptionView.h"

#include "desktop/controls/AccessKey.h"
#include "desktop/controls/ControlFollow.h"
#include "desktop/platform/QtText.h"
#include "platform/forms/OptionButton.h"

namespace quorvane::desktop {

OptionView::OptionView(forms::OptionButton& option, QWidget* parent) : QRadioButton(parent), option_(option) {
  changed_ = option.Changed.Subscribe([this] { Follow(); });
  connect(this, &QRadioButton::clicked, this, [this] {
    option_.Press();
    Follow();
  });
  Follow();
}

bool OptionView::event(QEvent* event) {
  return ClickByKey(*this, *event) || QRadioButton::event(event);
}

void OptionView::Follow() {
  setText(ToQString(option_.Caption()));
  setChecked(option_.Value());
  setFocusPolicy(option_.Value() ? Qt::StrongFocus : Qt::ClickFocus);  // Tab comes to the set one, arrows lead on
  FollowCaptioned(*this, option_);
}

}  // namespace quorvane::desktop

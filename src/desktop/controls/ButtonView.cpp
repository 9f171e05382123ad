#include "desktop/controls/ButtonView.h"

#include "desktop/controls/AccessKey.h"
#include "desktop/controls/ControlFollow.h"
#include "desktop/platform/QtText.h"
#include "platform/forms/CommandButton.h"

namespace quorvane::desktop {

ButtonView::ButtonView(forms::CommandButton& button, QWidget* parent) : QPushButton(parent), Press([&button] { button.Press(); }) {
  const auto follow = [this, &button] {
    setText(ToQString(button.Caption()));
    FollowCaptioned(*this, button);
  };
  changed_ = button.Changed.Subscribe(follow);
  connect(this, &QPushButton::clicked, this, [this] { Press(); });
  follow();
}

bool ButtonView::event(QEvent* event) {
  return ClickByKey(*this, *event) || QPushButton::event(event);
}

}  // namespace quorvane::desktop

#include "desktop/controls/FrameView.h"

#include "desktop/controls/ControlFollow.h"
#include "desktop/platform/QtText.h"
#include "platform/forms/Frame.h"

namespace quorvane::desktop {

FrameView::FrameView(forms::Frame& frame, QWidget* parent) : QGroupBox(parent) {
  const auto follow = [this, &frame] {
    setTitle(ToQString(frame.Caption()));
    FollowCaptioned(*this, frame);
  };
  changed_ = frame.Changed.Subscribe(follow);
  follow();
}

}  // namespace quorvane::desktop

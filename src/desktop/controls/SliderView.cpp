#include "desktop/controls/SliderView.h"

#include <QCursor>
#include <QToolTip>

#include "base/FlagScope.h"
#include "desktop/controls/ControlFollow.h"
#include "desktop/platform/QtText.h"
#include "platform/forms/Slider.h"

namespace quorvane::desktop {

SliderView::SliderView(forms::Slider& slider, QWidget* parent) : QSlider(Qt::Horizontal, parent), slider_(slider) {
  setRange(slider.Min(), slider.Max());
  setPageStep(1);
  setTickPosition(QSlider::TicksBelow);
  setTickInterval(1);
  connect(this, &QSlider::valueChanged, this, [this](int value) {
    if (busy_) return;
    slider_.Drag(value);
    if (isSliderDown()) QToolTip::showText(QCursor::pos(), ToQString(slider_.Text()), this);
  });
  changed_ = slider.Changed.Subscribe([this] { Follow(); });
  Follow();
}

void SliderView::Follow() {
  const FlagScope busy(busy_);
  setValue(slider_.Value());
  setToolTip(ToQString(slider_.Text()));
  FollowControl(*this, slider_);
}

}  // namespace quorvane::desktop

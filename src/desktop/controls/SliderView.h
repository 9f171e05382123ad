#pragma once

#include <QSlider>

#include "base/Event.h"

namespace quorvane::forms {
class Slider;
}  // namespace quorvane::forms

namespace quorvane {

namespace desktop {

/// A thumb on a scale; its text is shown at the thumb while it moves.
class SliderView final : public QSlider {
 public:
  /// The model outlives this.
  SliderView(forms::Slider& slider, QWidget* parent);

 private:
  void Follow();

  forms::Slider& slider_;
  bool busy_ = false;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane

#pragma once

#include <QSlider>

#include "base/Event.h"

namespace quorvane {

class Slider;

namespace desktop {

/// A thumb on a scale; its text is shown at the thumb while it moves.
class SliderView final : public QSlider {
 public:
  /// The model outlives this.
  SliderView(Slider& slider, QWidget* parent);

 private:
  void Follow();

  Slider& slider_;
  bool busy_ = false;
  Subscription changed_;
};

}  // namespace desktop
}  // namespace quorvane

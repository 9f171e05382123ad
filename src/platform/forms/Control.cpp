#include "platform/forms/Control.h"

#include <algorithm>

namespace quorvane::forms {

Control::~Control() = default;

void Control::SetVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  Changed.Raise();
}

void Control::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  Changed.Raise();
}

bool Control::IsOpen() const {
  if (!enabled_ || !visible_) return false;
  const auto container = Container();
  return !container || container->IsOpen();
}

void Control::SetContainer(const std::shared_ptr<Control>& container) {
  container_ = container;
  Changed.Raise();
}

void Control::Move(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
  width = std::max(width, 0);
  height = std::max(height, 0);
  const bool moved = left != left_ || top != top_;
  const bool sized = width != width_ || height != height_;
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
  if (moved || sized) Changed.Raise();
  if (sized) Resize.Raise();
}

}  // namespace quorvane::forms

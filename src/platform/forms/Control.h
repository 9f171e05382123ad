#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/Event.h"
#include "platform/NativeWindows.h"

namespace quorvane::forms {

/// What the controls of a form or document have in common: a model, nothing is drawn here. A view listens to Changed.
class Control {
 public:
  Control() = default;
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::u16string& Name() const { return name_; }

  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  /// Whether the control and all that it lies in are enabled and visible.
  bool IsOpen() const;

  /// The control in which this one lies; null when it lies in the form or document itself.
  std::shared_ptr<Control> Container() const { return container_.lock(); }
  void SetContainer(const std::shared_ptr<Control>& container);

  /// Place in the container, in twips.
  std::int32_t Left() const { return left_; }
  std::int32_t Top() const { return top_; }
  std::int32_t Width() const { return width_; }
  std::int32_t Height() const { return height_; }
  /// In twips. A width or height below 0 counts as 0.
  void Move(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height);

  /// The window of the view that shows the control; 0 while there is none.
  WindowHandle hWnd() const { return hWnd_; }
  void SetHwnd(WindowHandle hWnd) { hWnd_ = hWnd; }

  Event<> Changed;  ///< some property
  Event<> Resize;   ///< another width or height

 private:
  friend class Controls;

  std::u16string name_;  ///< given by the collection that the control is added to
  std::weak_ptr<Control> container_;
  std::int32_t left_ = 0;
  std::int32_t top_ = 0;
  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
  WindowHandle hWnd_ = 0;
  bool visible_ = true;
  bool enabled_ = true;
};

}  // namespace quorvane::forms

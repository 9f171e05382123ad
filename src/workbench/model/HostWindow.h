#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/Event.h"
#include "platform/NativeWindows.h"
#include "vbide/VBIDE.h"

namespace quorvane::workbench {

/// A window of the workbench as a model: nothing is drawn here. A view listens to Changed and shows what it finds.
class HostWindow : public vbide::Window {
 public:
  static constexpr std::int32_t kNormal = 0;
  static constexpr std::int32_t kMinimized = 1;
  static constexpr std::int32_t kMaximized = 2;

  /// A handle belongs to one window of its workbench and is not 0.
  HostWindow(WindowHandle handle, std::u16string caption, bool visible);

  std::u16string Caption() const override { return caption_; }
  void SetCaption(const std::u16string& caption) override;
  bool Visible() const override { return visible_; }
  void SetVisible(bool visible) override;
  std::int32_t WindowState() const { return state_; }
  /// Raises error 5 for a state that is none of the three.
  void SetWindowState(std::int32_t state) override;
  /// A closed window is hidden and can be shown again.
  void Close() override { SetVisible(false); }

  WindowHandle Handle() const { return handle_; }

  Event<> Changed;  ///< caption, visibility or state
  Event<> Shown;    ///< it was made visible, also when it was so already: whoever did that wants to see it

 private:
  WindowHandle handle_;
  std::u16string caption_;
  bool visible_;
  std::int32_t state_ = kNormal;
};

}  // namespace quorvane::workbench

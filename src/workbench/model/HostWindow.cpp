#include "workbench/model/HostWindow.h"

#include <utility>

#include "base/Error.h"

namespace quorvane::workbench {

HostWindow::HostWindow(WindowHandle handle, std::u16string caption, bool visible)
    : handle_(handle), caption_(std::move(caption)), visible_(visible) {}

void HostWindow::SetCaption(const std::u16string& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  Changed.Raise();
}

void HostWindow::SetVisible(bool visible) {
  if (visible != visible_) {
    visible_ = visible;
    Changed.Raise();
  }
  if (visible) Shown.Raise();
}

void HostWindow::SetWindowState(std::int32_t state) {
  if (state < kNormal || state > kMaximized) RaiseError(ErrorNumber::InvalidProcedureCall);
  if (state == state_) return;
  state_ = state;
  Changed.Raise();
}

}  // namespace quorvane::workbench

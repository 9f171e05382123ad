#include "windows/controls/PictureView.h"

#include "platform/forms/PictureBox.h"
#include "windows/forms/Metrics.h"

namespace quorvane::windows {

namespace {

constexpr WORD kIconOfModule = 1;
constexpr int kSize = 48;  // pixels at 96 an inch

}  // namespace

PictureView::PictureView(DialogView& dialog, const std::shared_ptr<forms::PictureBox>& box, HWND parent)
    : ControlView(dialog, box),
      icon_(static_cast<HICON>(::LoadImageW(Instance(), MAKEINTRESOURCEW(kIconOfModule), IMAGE_ICON, Scaled(kSize),
                                            Scaled(kSize), LR_DEFAULTCOLOR))) {
  Make(parent, L"STATIC", SS_ICON | SS_REALSIZEIMAGE);
  if (icon_ != nullptr) ::SendMessageW(Handle(), STM_SETICON, reinterpret_cast<WPARAM>(icon_), 0);
}

PictureView::~PictureView() {
  Destroy();
  if (icon_ != nullptr) ::DestroyIcon(icon_);
}

SIZE PictureView::Measure() const {
  return {Scaled(kSize), Scaled(kSize)};
}

}  // namespace quorvane::windows

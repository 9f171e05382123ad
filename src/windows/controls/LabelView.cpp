#include "windows/controls/LabelView.h"

#include <cmath>

#include "platform/forms/Label.h"
#include "windows/forms/TextSize.h"

namespace quorvane::windows {

namespace {

constexpr double kTitleScale = 1.7;

}  // namespace

LabelView::LabelView(DialogView& dialog, const std::shared_ptr<forms::Label>& label, HWND parent, Look look)
    : CaptionView(dialog, label) {
  Make(parent, L"STATIC", SS_LEFT | SS_NOTIFY | WS_GROUP);
  if (look == Look::Plain) return;
  LOGFONTW font = SystemFont();
  font.lfHeight = static_cast<LONG>(std::lround(font.lfHeight * kTitleScale));
  large_ = FontHandle(::CreateFontIndirectW(&font));
  SetFont(large_.Get());
}

SIZE LabelView::Measure() const {
  return SizeOfCaption(large_ ? large_.Get() : TheFont(), Captioned().Caption());
}

}  // namespace quorvane::windows

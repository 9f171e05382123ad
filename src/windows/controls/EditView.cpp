#include "windows/controls/EditView.h"

#include "base/FlagScope.h"
#include "platform/forms/TextBox.h"
#include "windows/controls/DialogView.h"
#include "windows/forms/CodeFont.h"
#include "windows/forms/Metrics.h"

namespace quorvane::windows {

namespace {

constexpr int kHeight = 12;
constexpr int kBorder = 4;
constexpr WPARAM kNoLimit = 0x7FFFFFFE;

DWORD StyleOf(const forms::TextBox& box) {
  if (!box.MultiLine()) return ES_AUTOHSCROLL;
  const DWORD many = ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | WS_VSCROLL;
  return box.Locked() ? many | ES_READONLY : many | ES_AUTOHSCROLL | WS_HSCROLL;
}

/// The system's box breaks lines at CR LF alone.
std::u16string WithFullBreaks(const std::u16string& text) {
  std::u16string full;
  full.reserve(text.size() + text.size() / 16);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
    if (pair) ++i;
    if (pair || text[i] == u'\r' || text[i] == u'\n') {
      full += u"\r\n";
    } else {
      full += text[i];
    }
  }
  return full;
}

}  // namespace

EditView::EditView(DialogView& dialog, const std::shared_ptr<forms::TextBox>& box, HWND parent, int columns, int lines)
    : ControlView(dialog, box), box_(box), columns_(columns), lines_(lines) {
  Make(parent, L"EDIT", StyleOf(*box) | WS_TABSTOP | WS_GROUP, WS_EX_CLIENTEDGE);
  ::SendMessageW(Handle(), EM_SETLIMITTEXT, kNoLimit, 0);
  if (!box->MultiLine()) return;
  fixed_ = CodeFont();
  SetFont(fixed_.Get());
}

void EditView::Show() {
  if (text_ != box_->Text() && !taking_) {
    text_ = box_->Text();
    SetText(box_->MultiLine() ? WithFullBreaks(text_) : text_);
  }
  const bool locked = (::GetWindowLongW(Handle(), GWL_STYLE) & ES_READONLY) != 0;
  if (locked != box_->Locked()) ::SendMessageW(Handle(), EM_SETREADONLY, box_->Locked() ? TRUE : FALSE, 0);
}

SIZE EditView::Measure() const {
  const DialogUnits& units = TheDialog().Units();
  const int border = 2 * units.Across(kBorder);
  const LONG width =
      SizeOfLine(fixed_ ? fixed_.Get() : TheFont(), std::u16string(static_cast<std::size_t>(columns_), u'x')).cx;
  if (!box_->MultiLine()) return {width + border, units.Down(kHeight)};
  const LONG height = SizeOfLine(fixed_.Get(), u"").cy * lines_;
  return {width + border + ::GetSystemMetrics(SM_CXVSCROLL), height + border};
}

void EditView::OnCommand(WORD code) {
  if (code != EN_CHANGE) return;
  const std::u16string text = Text();
  if (text == (box_->MultiLine() ? WithFullBreaks(text_) : text_)) return;
  {
    const FlagScope taking(taking_);
    box_->Edit(text);
  }
  text_ = box_->Text();
}

}  // namespace quorvane::windows

#include "windows/controls/LinkView.h"

#include "platform/forms/Label.h"
#include "windows/controls/DialogView.h"
#include "windows/forms/TextSize.h"

namespace quorvane::windows {

namespace {

constexpr WORD kHand = 32649;

}  // namespace

LinkView::LinkView(DialogView& dialog, const std::shared_ptr<forms::Label>& label, HWND parent)
    : CaptionView(dialog, label), label_(label) {
  Make(parent, L"STATIC", SS_LEFT | SS_NOTIFY | SS_NOPREFIX | WS_TABSTOP | WS_GROUP);
  LOGFONTW font = SystemFont();
  font.lfUnderline = 1;
  underlined_ = FontHandle(::CreateFontIndirectW(&font));
  SetFont(underlined_.Get());
}

SIZE LinkView::Measure() const {
  const SIZE words = SizeOfLine(underlined_.Get(), label_->Caption());
  return {words.cx + 2, words.cy + 2};
}

void LinkView::OnCommand(WORD code) {
  if (code == STN_CLICKED) label_->Press();
}

LRESULT LinkView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SETCURSOR:
      if (!label_->HandPointer) break;
      ::SetCursor(::LoadCursorW(nullptr, MAKEINTRESOURCEW(kHand)));
      return TRUE;
    case WM_GETDLGCODE:
      return DLGC_STATIC;
    case WM_KEYDOWN:
      if (wParam == VK_SPACE) label_->Press();
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      ::InvalidateRect(Handle(), nullptr, TRUE);
      break;
    case WM_PAINT: {
      const LRESULT result = Default(message, wParam, lParam);
      ShowFocus();
      return result;
    }
    default:
      break;
  }
  return ControlView::OnMessage(message, wParam, lParam);
}

void LinkView::ShowFocus() {
  if (::GetFocus() != Handle()) return;
  RECT room{};
  ::GetClientRect(Handle(), &room);
  const HDC context = ::GetDC(Handle());
  ::DrawFocusRect(context, &room);
  ::ReleaseDC(Handle(), context);
}

bool LinkView::OnReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
  if (message != WM_CTLCOLORSTATIC) return CaptionView::OnReflected(message, wParam, lParam, result);
  const auto context = reinterpret_cast<HDC>(wParam);
  ::SetTextColor(context, label_->ForeColor);
  ::SetBkColor(context, ::GetSysColor(COLOR_BTNFACE));
  result = reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_BTNFACE));
  return true;
}

}  // namespace quorvane::windows

#include "windows/host32/CodeWindow.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/FlagScope.h"
#include "base/Text.h"
#include "windows/host32/TextDrag.h"
#include "workbench/model/HostWindow.h"

namespace quorvane::container {

namespace {

constexpr UINT kBringForward = 0x1043;
constexpr wchar_t kOwner[] = L"QuorvaneCodeWindow";

/// Characters of `line` before the screen column.
DWORD Characters(std::u16string_view line, std::int32_t column, const CodePage& page) {
  std::int32_t at = 1;
  std::size_t i = 0;
  for (; i < line.size() && at < column; ++i) at += page.IsWide(line[i]) ? 2 : 1;
  return static_cast<DWORD>(i);
}

std::int32_t Column(std::u16string_view line, std::size_t characters, const CodePage& page) {
  std::int32_t column = 1;
  for (const char16_t c : line.substr(0, characters)) column += page.IsWide(c) ? 2 : 1;
  return column;
}

}  // namespace

CodeWindow::CodeWindow(HWND client, std::shared_ptr<workbench::Pane> pane, const CodePage& page)
    : client_(client),
      pane_(std::move(pane)),
      module_(std::dynamic_pointer_cast<workbench::Module>(pane_->CodeModule())),
      page_(page) {
  MDICREATESTRUCTW create{};
  const std::u16string caption = pane_->TheWindow()->Caption();
  create.szClass = L"VbaWindow";
  create.szTitle = com::Wide(caption);
  create.hOwner = GetModuleHandleW(nullptr);
  create.x = create.y = create.cx = create.cy = CW_USEDEFAULT;
  create.lParam = reinterpret_cast<LPARAM>(static_cast<WindowObject*>(this));
  SendMessageW(client_, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&create));
  textChanged_ = module_->Changed.Subscribe([this] { ShowText(); });
  selectionChanged_ = pane_->SelectionChanged.Subscribe([this] { ShowSelection(); });
  windowChanged_ = pane_->TheWindow()->Changed.Subscribe([this] { FollowModel(); });
  shown_ = pane_->TheWindow()->Shown.Subscribe([this] { BringForward(); });
  ShowText();
  ShowSelection();
  FollowModel();
}

CodeWindow::~CodeWindow() {
  textChanged_.Reset();
  selectionChanged_.Reset();
  windowChanged_.Reset();
  shown_.Reset();
  if (handle_ != nullptr) SendMessageW(client_, WM_MDIDESTROY, reinterpret_cast<WPARAM>(handle_), 0);
}

void CodeWindow::MakeField() {
  field_ = CreateWindowExW(0, L"EDIT", nullptr,
                           WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | ES_MULTILINE | ES_AUTOVSCROLL |
                               ES_AUTOHSCROLL | ES_NOHIDESEL | ES_WANTRETURN,
                           0, 0, 0, 0, handle_, nullptr, GetModuleHandleW(nullptr), nullptr);
  SendMessageW(field_, EM_SETLIMITTEXT, 0x7FFFFFFE, 0);
  SendMessageW(field_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(ANSI_FIXED_FONT)), TRUE);
  SetPropW(field_, kOwner, this);
  fieldBefore_ =
      reinterpret_cast<WNDPROC>(SetWindowLongPtrW(field_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(FieldProcedure)));
}

LRESULT CALLBACK CodeWindow::FieldProcedure(HWND field, UINT message, WPARAM wParam, LPARAM lParam) {
  auto& owner = *static_cast<CodeWindow*>(GetPropW(field, kOwner));
  if (message == WM_CHAR && wParam == 'Z' - '@') {
    owner.module_->Undo();
    return 0;
  }
  if (message == WM_LBUTTONDOWN && DragSelection(field, lParam)) return 0;
  const LRESULT result = CallWindowProcW(owner.fieldBefore_, field, message, wParam, lParam);
  const bool moves = (message >= WM_KEYFIRST && message <= WM_KEYLAST) || message == WM_LBUTTONUP ||
                     message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK || message == EM_SETSEL;
  if (moves && !owner.following_) owner.TakeSelection();
  return result;
}

LRESULT CodeWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      MakeField();
      break;
    case WM_SIZE:
      MoveWindow(field_, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
      break;  // the client area must see it, too
    case WM_SETFOCUS:
      SetFocus(field_);
      break;
    case WM_MDIACTIVATE:
      if (reinterpret_cast<HWND>(lParam) == handle_ && !following_) pane_->Show();
      break;
    case WM_CLOSE:
      pane_->TheWindow()->Close();
      return 0;
    case WM_COMMAND:
      if (HIWORD(wParam) == EN_CHANGE && !following_) TakeText();
      break;
    case kBringForward:
      pane_->Show();
      return 0;
    default:
      break;
  }
  return DefMDIChildProcW(handle_, message, wParam, lParam);
}

void CodeWindow::BringForward() {
  if (following_) return;
  const FlagScope scope(following_);
  SendMessageW(client_, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(handle_), 0);
  SetFocus(field_);
}

void CodeWindow::FollowModel() {
  if (following_) return;
  const FlagScope scope(following_);
  const workbench::HostWindow& model = *pane_->TheWindow();
  SetWindowTextW(handle_, com::Wide(model.Caption()));
  const bool visible = IsWindowVisible(handle_) != FALSE;
  if (model.Visible() && !visible) {
    ShowWindow(handle_, SW_SHOW);
  } else if (!model.Visible() && visible) {
    ShowWindow(handle_, SW_HIDE);
  }
  if (model.WindowState() == workbench::HostWindow::kMaximized && !IsZoomed(handle_)) {
    SendMessageW(client_, WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(handle_), 0);
  }
}

std::u16string CodeWindow::FieldText() const {
  std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(field_)) + 1, u'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(field_, com::Wide(text.data()), static_cast<int>(text.size()))));
  return text;
}

void CodeWindow::ShowText() {
  if (following_) return;
  const FlagScope scope(following_);
  SetWindowTextW(field_, com::Wide(module_->Text()));
}

void CodeWindow::ShowSelection() {
  if (following_) return;
  const FlagScope scope(following_);
  const vbide::Selection place = pane_->GetSelection();
  const auto offset = [&](std::int32_t line, std::int32_t column) {
    const auto first = static_cast<DWORD>(SendMessageW(field_, EM_LINEINDEX, static_cast<WPARAM>(line - 1), 0));
    return first + Characters(module_->Lines(line, 1), column, page_);
  };
  SendMessageW(field_, EM_SETSEL, offset(place.StartLine, place.StartColumn),
               static_cast<LPARAM>(offset(place.EndLine, place.EndColumn)));
  SendMessageW(field_, EM_SCROLLCARET, 0, 0);
}

void CodeWindow::TakeSelection() {
  const FlagScope scope(following_);
  DWORD start = 0;
  DWORD end = 0;
  SendMessageW(field_, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  const auto place = [&](DWORD offset, std::int32_t& line, std::int32_t& column) {
    const LRESULT row = SendMessageW(field_, EM_LINEFROMCHAR, offset, 0);
    const LRESULT first = SendMessageW(field_, EM_LINEINDEX, static_cast<WPARAM>(row), 0);
    line = static_cast<std::int32_t>(row) + 1;
    column = Column(module_->Lines(line, 1), offset - static_cast<DWORD>(first), page_);
  };
  vbide::Selection selection;
  place(start, selection.StartLine, selection.StartColumn);
  place(end, selection.EndLine, selection.EndColumn);
  pane_->SetSelection(selection);
}

/// The lines that are the same at both ends stay; those between are written anew.
void CodeWindow::TakeText() {
  const FlagScope scope(following_);
  const std::u16string before = module_->Text();
  const std::u16string after = FieldText();
  const auto was = Split(before, kCrLf);
  const auto is = Split(after, kCrLf);
  std::size_t head = 0;
  while (head < std::min(was.size(), is.size()) && was[head] == is[head]) ++head;
  std::size_t tail = 0;
  while (tail < std::min(was.size(), is.size()) - head && was[was.size() - 1 - tail] == is[is.size() - 1 - tail]) {
    ++tail;
  }
  const auto line = static_cast<std::int32_t>(head) + 1;
  const auto gone = static_cast<std::int32_t>(was.size() - head - tail);
  if (gone > 0) module_->DeleteLines(line, std::min(gone, module_->CountOfLines() - line + 1));
  std::u16string text;
  for (std::size_t i = head; i < is.size() - tail; ++i) {
    if (i > head) text += kCrLf;
    text += is[i];
  }
  if (is.size() > head + tail) module_->InsertLines(line, text);
}

}  // namespace quorvane::container

#include "windows/dialogs/KeyEditorView.h"

#include <commctrl.h>

#include <algorithm>

#include "base/Error.h"
#include "base/FlagScope.h"
#include "chordtrap/ChordTrapControl.h"
#include "windows/controls/TabGround.h"
#include "windows/controls/ThemeScope.h"
#include "windows/forms/Fonts.h"
#include "windows/forms/Metrics.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

namespace {

constexpr int kFirstId = 1;
constexpr int kGap = 4;
constexpr int kRowHeight = 14;
constexpr int kButtonWidth = 50;
constexpr int kListWidth = 220;
constexpr int kListHeight = 100;
constexpr int kWarningLines = 2;
constexpr int kKeyColumn = 2;  // its share of the width: one of so many parts

}  // namespace

KeyEditorView::KeyEditorView(chordtrap::ChordTrapControl& editor, HWND parent) : editor_(editor), units_(DialogFont()) {
  Making making;
  making.style = WS_CHILD | WS_VISIBLE;
  making.extendedStyle = WS_EX_CONTROLPARENT;
  making.parent = parent;
  Create(making);
  MakeCommands();
  box_ = std::make_unique<KeyBox>(Handle(), kFirstId);
  add_ = MakePart(L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP | WS_GROUP);
  remove_ = MakePart(L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP | WS_GROUP);
  line_ = MakePart(L"STATIC", SS_LEFT | SS_NOPREFIX);
  changed_ = editor_.Changed.Subscribe([this] { Follow(); });
  pressed_ = box_->Pressed.Subscribe([this](const chordtrap::KeyChord& chord) { editor_.Press(chord); });
  Follow();
}

KeyEditorView::~KeyEditorView() = default;

HWND KeyEditorView::MakePart(const wchar_t* className, DWORD style, DWORD extendedStyle) {
  const ThemeScope themed;
  const HWND made = ::CreateWindowExW(extendedStyle, className, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0,
                                      Handle(), nullptr, Instance(), nullptr);
  if (made == nullptr) RaiseLastError(u"CreateWindowEx");
  ::SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(DialogFont()), TRUE);
  return made;
}

void KeyEditorView::MakeCommands() {
  commands_ =
      MakePart(WC_LISTVIEWW, LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER | WS_TABSTOP | WS_GROUP,
               WS_EX_CLIENTEDGE);
  ::SendMessageW(commands_, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
  for (int i = 0; i < 2; ++i) {
    LVCOLUMNW column{};
    column.mask = LVCF_SUBITEM;
    column.iSubItem = i;
    ::SendMessageW(commands_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
  }
}

/// A key that is taken stays in the box, with the line that says whose it is.
void KeyEditorView::Add() {
  try {
    editor_.Add();
  } catch (const Error&) {
    ::MessageBeep(MB_OK);
  }
}

void KeyEditorView::Follow() {
  const FlagScope busy(busy_);
  std::u16string captions[] = {editor_.FunctionCaption, editor_.HotkeyCaption};
  for (WPARAM i = 0; i < 2; ++i) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT;
    column.pszText = reinterpret_cast<wchar_t*>(captions[i].data());
    ::SendMessageW(commands_, LVM_SETCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
  }
  FollowRows();
  box_->SetText(editor_.Pressed());
  ::SetWindowTextW(add_, Wide(editor_.AddCaption));
  ::SetWindowTextW(remove_, Wide(editor_.RemoveCaption));
  const std::u16string owner = Owner();
  ::EnableWindow(add_, editor_.CanAdd() && owner.empty());
  ::EnableWindow(remove_, editor_.CanRemove());
  warning_ = owner.empty() ? u"" : u"\u26A0 " + editor_.Pressed() + u": " + owner;
  ::SetWindowTextW(line_, Wide(warning_));
}

void KeyEditorView::ShowCell(int row, int column, const std::u16string& text) {
  std::u16string shown = text;
  LVITEMW item{};
  item.iSubItem = column;
  item.pszText = reinterpret_cast<wchar_t*>(shown.data());
  ::SendMessageW(commands_, LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void KeyEditorView::FollowRows() {
  auto count = static_cast<int>(::SendMessageW(commands_, LVM_GETITEMCOUNT, 0, 0));
  while (count > editor_.Count()) ::SendMessageW(commands_, LVM_DELETEITEM, static_cast<WPARAM>(--count), 0);
  for (; count < editor_.Count(); ++count) {
    LVITEMW item{};
    item.iItem = count;
    ::SendMessageW(commands_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
  }
  for (int i = 0; i < count; ++i) {
    ShowCell(i, 0, editor_.Description(i + 1));
    ShowCell(i, 1, editor_.Key(i + 1));
  }
  constexpr UINT kChosen = LVIS_SELECTED | LVIS_FOCUSED;
  const LRESULT shown = ::SendMessageW(commands_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
  if (shown == editor_.Selected() - 1) return;
  LVITEMW item{};
  item.stateMask = editor_.Selected() > 0 ? kChosen : LVIS_SELECTED;
  item.state = editor_.Selected() > 0 ? kChosen : 0;
  ::SendMessageW(commands_, LVM_SETITEMSTATE, static_cast<WPARAM>(editor_.Selected() - 1),
                 reinterpret_cast<LPARAM>(&item));
}

std::u16string KeyEditorView::Owner() const {
  if (editor_.Pressed().empty()) return {};
  for (int row = 1; row <= editor_.Count(); ++row) {
    if (row != editor_.Selected() && editor_.Key(row) == editor_.Pressed()) return editor_.Description(row);
  }
  return {};
}

SIZE KeyEditorView::Least() const {
  const LONG line = SizeOfLine(DialogFont(), u"").cy * kWarningLines;
  return {units_.Across(kListWidth), units_.Down(kListHeight + 2 * kGap + kRowHeight) + line};
}

void KeyEditorView::Place(const RECT& room) {
  ::MoveWindow(Handle(), room.left, room.top, Width(room), windows::Height(room), TRUE);
  const int width = Width(room);
  const int across = units_.Across(kGap);
  const int row = units_.Down(kRowHeight);
  const int button = units_.Across(kButtonWidth);
  const int line = static_cast<int>(SizeOfLine(DialogFont(), u"").cy) * kWarningLines;
  const int lineTop = windows::Height(room) - line;
  const int rowTop = lineTop - units_.Down(kGap) - row;
  const int buttons = width - 2 * button - across;
  ::MoveWindow(commands_, 0, 0, width, rowTop - units_.Down(kGap), TRUE);
  ::MoveWindow(box_->Handle(), 0, rowTop + 1, buttons - across, row - 2, TRUE);
  ::MoveWindow(add_, buttons, rowTop, button, row, TRUE);
  ::MoveWindow(remove_, buttons + button + across, rowTop, button, row, TRUE);
  ::MoveWindow(line_, 0, lineTop, width, line, TRUE);
  SizeColumns();
}

void KeyEditorView::SizeColumns() {
  RECT inside{};
  ::GetClientRect(commands_, &inside);
  const int keys = Width(inside) / (kKeyColumn + 1);
  ::SendMessageW(commands_, LVM_SETCOLUMNWIDTH, 0, Width(inside) - keys);
  ::SendMessageW(commands_, LVM_SETCOLUMNWIDTH, 1, keys);
}

void KeyEditorView::OnCommand(HWND part, WORD code) {
  if (code != BN_CLICKED) return;
  if (part == add_) Add();
  if (part == remove_) editor_.Remove();
}

/// Of a change of the selection, the row that becomes selected; a click beside the rows selects none.
void KeyEditorView::OnNotify(const NMHDR& told) {
  if (told.hwndFrom != commands_ || told.code != LVN_ITEMCHANGED || busy_) return;
  const auto& item = reinterpret_cast<const NMLISTVIEW&>(told);
  if (((item.uOldState ^ item.uNewState) & LVIS_SELECTED) == 0) return;
  const LRESULT row = ::SendMessageW(commands_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
  editor_.Select(static_cast<std::int32_t>(row) + 1);
}

LRESULT KeyEditorView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      OnCommand(reinterpret_cast<HWND>(lParam), HIWORD(wParam));
      return 0;
    case WM_NOTIFY:
      OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
      return 0;
    case WM_CTLCOLORSTATIC:
      if (reinterpret_cast<HWND>(lParam) != line_) break;
      ::SetBkColor(reinterpret_cast<HDC>(wParam), TabGroundColor());
      return reinterpret_cast<LRESULT>(TabGroundBrush());
    case WM_ERASEBKGND: {
      RECT room{};
      ::GetClientRect(Handle(), &room);
      ::FillRect(reinterpret_cast<HDC>(wParam), &room, TabGroundBrush());
      return 1;
    }
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

}  // namespace quorvane::windows

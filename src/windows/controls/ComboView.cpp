#include "windows/controls/ComboView.h"

#include <algorithm>

#include "platform/forms/ComboBox.h"
#include "windows/controls/DialogView.h"
#include "windows/controls/TextDrop.h"
#include "windows/forms/Metrics.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

namespace {

constexpr int kEditWidth = 150;
constexpr int kArrowWidth = 16;
constexpr int kShownRows = 16;

}  // namespace

ComboView::ComboView(DialogView& dialog, const std::shared_ptr<forms::ComboBox>& combo, HWND parent, Kind kind)
    : ControlView(dialog, combo), combo_(combo), kind_(kind) {
  const DWORD style = kind == Kind::Editable ? CBS_DROPDOWN | CBS_AUTOHSCROLL : CBS_DROPDOWNLIST;
  Make(parent, L"COMBOBOX", style | WS_VSCROLL | WS_TABSTOP | WS_GROUP);
  if (kind_ == Kind::ListOnly) return;
  ::SendMessageW(Handle(), CB_LIMITTEXT, 0, 0);
  edit_ = ::FindWindowExW(Handle(), nullptr, L"Edit", nullptr);
  drop_ = std::make_unique<TextDrop>(Handle(), [combo](const forms::DataObject& data) { combo->Drop(data); });
}

ComboView::~ComboView() = default;

void ComboView::Show() {
  ShowList();
  if (kind_ == Kind::Editable) {
    ShowText();
  } else if (::SendMessageW(Handle(), CB_GETCURSEL, 0, 0) != combo_->ListIndex()) {
    ::SendMessageW(Handle(), CB_SETCURSEL, static_cast<WPARAM>(combo_->ListIndex()), 0);
  }
}

void ComboView::ShowList() {
  std::vector<std::u16string> list;
  for (std::int32_t i = 0; i < combo_->ListCount(); ++i) list.push_back(combo_->List(i));
  if (list == list_) return;
  list_ = std::move(list);
  const std::u16string text = Text();
  ::SendMessageW(Handle(), CB_RESETCONTENT, 0, 0);
  for (const std::u16string& item : list_) {
    ::SendMessageW(Handle(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item)));
  }
  if (kind_ == Kind::Editable) SetText(text);
}

/// The box may show a text otherwise than it is, such as one with line breaks: what counts is what was told last.
void ComboView::ShowText() {
  const bool other = text_ != combo_->Text();
  if (other) {
    text_ = combo_->Text();
    SetText(text_);
  }
  if (!other && selStart_ == combo_->SelStart() && selLength_ == combo_->SelLength()) return;
  selStart_ = combo_->SelStart();
  selLength_ = combo_->SelLength();
  ::SendMessageW(edit_, EM_SETSEL, static_cast<WPARAM>(selStart_), selStart_ + selLength_);
}

SIZE ComboView::Measure() const {
  RECT closed{};
  ::GetWindowRect(Handle(), &closed);
  const DialogUnits& units = TheDialog().Units();
  if (kind_ == Kind::Editable) return {units.Across(kEditWidth), Height(closed)};
  LONG widest = 0;
  for (const std::u16string& item : list_) widest = std::max(widest, SizeOfLine(TheFont(), item).cx);
  return {widest + units.Across(kArrowWidth), Height(closed)};
}

/// The height that a combo box is given is that with its list hanging open.
void ComboView::Place(const RECT& room) {
  RECT open = room;
  open.bottom += kShownRows * static_cast<LONG>(::SendMessageW(Handle(), CB_GETITEMHEIGHT, 0, 0));
  RECT now{};
  ::GetWindowRect(Handle(), &now);
  ::MapWindowPoints(nullptr, ::GetParent(Handle()), reinterpret_cast<POINT*>(&now), 2);
  if (now.left == room.left && now.top == room.top && now.right == room.right) return;
  ControlView::Place(open);
  // A box that is sized shows all its text as selected.
  if (edit_ != nullptr) ::SendMessageW(edit_, EM_SETSEL, static_cast<WPARAM>(selStart_), selStart_ + selLength_);
}

void ComboView::OnCommand(WORD code) {
  const auto combo = combo_;
  switch (code) {
    case CBN_SETFOCUS:
      TheDialog().NoteFocus(this);
      return;
    case CBN_KILLFOCUS:
      if (kind_ == Kind::Editable) TakeText();
      TheDialog().NoteLeft(::GetFocus());
      return;
    case CBN_EDITCHANGE:
    case CBN_CLOSEUP:
      if (kind_ == Kind::Editable) TakeText();
      return;
    case CBN_SELCHANGE:
      Pick();
      return;
    default:
      return;
  }
}

/// An open list puts its own entries into the box as it closes, without a word.
void ComboView::TakeText() {
  const std::u16string text = Text();
  if (text == text_) return;
  text_ = text;
  DWORD start = 0;
  DWORD end = 0;
  ::SendMessageW(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  selStart_ = static_cast<std::int32_t>(start);
  selLength_ = static_cast<std::int32_t>(end - start);
  combo_->Edit(text, selStart_, selLength_);
  Follow();
}

void ComboView::Pick() {
  const LRESULT index = ::SendMessageW(Handle(), CB_GETCURSEL, 0, 0);
  if (index < 0) return;
  combo_->Pick(static_cast<std::int32_t>(index));
  Follow();
}

}  // namespace quorvane::windows

#include "platform/forms/ComboBox.h"

#include <algorithm>

#include "base/Error.h"
#include "platform/forms/DataObject.h"

namespace quorvane::forms {

namespace {

[[noreturn]] void RaiseInvalidValue(const char16_t* what) {
  RaiseError(ErrorNumber::InvalidPropertyValue, std::u16string(u"Invalid property value: ") + what);
}

[[noreturn]] void RaiseNoEntry() {
  RaiseError(ErrorNumber::InvalidProcedureCall, u"There is no such entry in the list of a combo box");
}

std::int32_t Length(const std::u16string& text) {
  return static_cast<std::int32_t>(text.size());
}

}  // namespace

void ComboBox::SetText(const std::u16string& text) {
  if (text == text_) return;
  listIndex_ = -1;
  TakeText(text);
  Changed.Raise();
  Change.Raise();
}

void ComboBox::TakeText(const std::u16string& text) {
  text_ = text;
  selStart_ = selLength_ = 0;
}

void ComboBox::SetSelStart(std::int32_t start) {
  if (start < 0) RaiseInvalidValue(u"the start of a selection");
  selStart_ = std::min(start, Length(text_));
  selLength_ = 0;
  Changed.Raise();
}

void ComboBox::SetSelLength(std::int32_t length) {
  if (length < 0) RaiseInvalidValue(u"the length of a selection");
  selLength_ = std::min(length, Length(text_) - selStart_);
  Changed.Raise();
}

std::u16string ComboBox::List(std::int32_t index) const {
  if (index < 0 || index >= ListCount()) return {};
  return list_[static_cast<std::size_t>(index)];
}

void ComboBox::AddItem(const std::u16string& item, std::optional<std::int32_t> index) {
  const std::int32_t place = index.value_or(ListCount());
  if (place < 0 || place > ListCount()) RaiseNoEntry();
  list_.insert(list_.begin() + place, item);
  if (listIndex_ >= place) ++listIndex_;
  Changed.Raise();
}

void ComboBox::RemoveItem(std::int32_t index) {
  if (index < 0 || index >= ListCount()) RaiseNoEntry();
  list_.erase(list_.begin() + index);
  const bool picked = index == listIndex_;
  if (listIndex_ > index) --listIndex_;
  Changed.Raise();
  if (picked) {
    listIndex_ = -1;
    SetText({});
  }
}

void ComboBox::Clear() {
  list_.clear();
  listIndex_ = -1;
  Changed.Raise();
  SetText({});
}

void ComboBox::SetListIndex(std::int32_t index) {
  if (index < -1 || index >= ListCount()) RaiseInvalidValue(u"the picked entry of a combo box");
  if (index == listIndex_) return;
  listIndex_ = index;
  TakeText(List(index));
  Changed.Raise();
  Click.Raise();
}

void ComboBox::Edit(const std::u16string& text, std::int32_t selStart, std::int32_t selLength) {
  if (!TakesInput()) return;
  const bool other = text != text_;
  if (other) listIndex_ = -1;
  text_ = text;
  selStart_ = std::clamp(selStart, 0, Length(text_));
  selLength_ = std::clamp(selLength, 0, Length(text_) - selStart_);
  Changed.Raise();
  if (other) Change.Raise();
}

void ComboBox::Pick(std::int32_t index) {
  if (!TakesInput() || index < 0 || index >= ListCount()) return;
  listIndex_ = -1;
  SetListIndex(index);
}

void ComboBox::Drop(const DataObject& data) {
  if (TakesInput()) OLEDragDrop.Raise(data);
}

}  // namespace quorvane::forms

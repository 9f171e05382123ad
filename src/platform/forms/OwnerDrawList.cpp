#include "platform/forms/OwnerDrawList.h"

#include "base/Error.h"

namespace quorvane::forms {

void OwnerDrawList::AddItem(const std::u16string& text, std::int32_t itemData) {
  rows_.push_back({text, itemData});
  RowsChanged.Raise();
}

void OwnerDrawList::Clear() {
  rows_.clear();
  listIndex_ = -1;
  RowsChanged.Raise();
}

const OwnerDrawList::Row& OwnerDrawList::At(std::int32_t index) const {
  if (index < 0 || index >= ListCount()) RaiseError(ErrorNumber::InvalidPropertyIndex, u"Invalid property array index");
  return rows_[static_cast<std::size_t>(index)];
}

const std::u16string& OwnerDrawList::List(std::int32_t index) const {
  return At(index).text;
}

std::int32_t OwnerDrawList::ItemData(std::int32_t index) const {
  return At(index).itemData;
}

void OwnerDrawList::SetListIndex(std::int32_t index) {
  if (index < -1 || index >= ListCount()) {
    RaiseError(ErrorNumber::InvalidPropertyValue, u"Invalid property value: the selected row of a list");
  }
  if (index == listIndex_) return;
  listIndex_ = index;
  Changed.Raise();
}

void OwnerDrawList::SetFont(const forms::Font& font) {
  if (font == font_) return;
  font_ = font;
  Changed.Raise();
}

void OwnerDrawList::SetHorizontalExtent(std::int32_t pixels) {
  if (pixels == horizontalExtent_) return;
  horizontalExtent_ = pixels;
  Changed.Raise();
}

}  // namespace quorvane::forms

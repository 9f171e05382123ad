#include "platform/forms/TabControl.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "platform/forms/MouseButton.h"
#include "platform/forms/Tab.h"

namespace quorvane::forms {

TabControl::TabControl() = default;

TabControl::~TabControl() {
  for (const auto& tab : tabs_) tab->owner_ = nullptr;
}

std::shared_ptr<Tab> TabControl::Add(const std::u16string& key, std::u16string_view insertBefore,
                                     const std::u16string& caption, std::int32_t iconIndex) {
  if (PositionOfKey(key) < tabs_.size()) {
    RaiseError(ErrorNumber::DuplicateKey, ErrorText(ErrorNumber::DuplicateKey) + u": tab " + key);
  }
  const std::size_t position = insertBefore.empty() ? tabs_.size() : Position(std::u16string(insertBefore));
  const auto tab = std::make_shared<Tab>(*this, key, caption, iconIndex);
  tabs_.insert(tabs_.begin() + static_cast<std::ptrdiff_t>(position), tab);
  Changed.Raise();
  if (!selected_) Select(*tab);
  return tab;
}

std::shared_ptr<Tab> TabControl::Item(const Index& index) const {
  return tabs_[Position(index)];
}

void TabControl::Remove(const Index& index) {
  const std::size_t position = Position(index);
  const std::shared_ptr<Tab> tab = tabs_[position];
  tabs_.erase(tabs_.begin() + static_cast<std::ptrdiff_t>(position));
  tab->owner_ = nullptr;
  if (tab == selected_ && !tabs_.empty()) {
    SelectAt(std::min(position, tabs_.size() - 1));
    return;
  }
  if (tab == selected_) selected_.reset();
  tab->ShowPanel();
  Changed.Raise();
}

void TabControl::SetImages(std::shared_ptr<ImageList> images) {
  images_ = std::move(images);
  Changed.Raise();
}

void TabControl::Select(Tab& tab) {
  if (selected_.get() == &tab) return;
  SelectAt(PositionOfKey(tab.Key()));
}

void TabControl::SelectAt(std::size_t position) {
  const std::shared_ptr<Tab> before = std::exchange(selected_, tabs_[position]);
  const std::shared_ptr<Tab> tab = selected_;
  if (before) before->ShowPanel();
  tab->ShowPanel();
  Changed.Raise();
  TabSelected.Raise(tab);
}

bool TabControl::Takes(const std::shared_ptr<Tab>& tab) const {
  return Enabled() && std::ranges::find(tabs_, tab) != tabs_.end();
}

void TabControl::PressTab(const std::shared_ptr<Tab>& tab, std::int16_t button, std::int16_t shift, float x, float y) {
  if (!Takes(tab)) return;
  const std::shared_ptr<Tab> held = tab;
  if (button == kLeftButton) Select(*held);
  TabMouseDown.Raise(held, button, shift, x, y);
}

void TabControl::DoubleClickTab(const std::shared_ptr<Tab>& tab) {
  if (!Takes(tab)) return;
  const std::shared_ptr<Tab> held = tab;
  TabDoubleClick.Raise(held);
}

void TabControl::PressClose(const std::shared_ptr<Tab>& tab) {
  if (!Takes(tab) || !tab->CanClose()) return;
  const std::shared_ptr<Tab> held = tab;
  bool cancel = false;
  TabClose.Raise(held, cancel);
  if (!cancel && held->owner_ == this) Remove(held->Key());
}

void TabControl::PressBar(std::int16_t button, std::int16_t shift, float x, float y) {
  if (Enabled()) BarMouseDown.Raise(button, shift, x, y);
}

std::size_t TabControl::Position(const Index& index) const {
  if (const auto* position = std::get_if<std::int32_t>(&index)) {
    if (*position < 1 || *position > Count()) {
      RaiseError(ErrorNumber::SubscriptOutOfRange, ErrorText(ErrorNumber::SubscriptOutOfRange) + u": tab");
    }
    return static_cast<std::size_t>(*position) - 1;
  }
  const std::size_t position = PositionOfKey(std::get<std::u16string>(index));
  if (position == tabs_.size()) {
    RaiseError(ErrorNumber::InvalidProcedureCall, u"There is no tab " + std::get<std::u16string>(index));
  }
  return position;
}

std::size_t TabControl::PositionOfKey(std::u16string_view key) const {
  const auto found = std::ranges::find_if(tabs_, [&](const auto& tab) { return EqualsNoCaseAscii(tab->Key(), key); });
  return static_cast<std::size_t>(found - tabs_.begin());
}

}  // namespace quorvane::forms

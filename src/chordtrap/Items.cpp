#include "chordtrap/Items.h"

#include "base/Error.h"

namespace quorvane::chordtrap {

std::shared_ptr<Item> Items::Add(const std::u16string& description, ICommandTarget& target,
                                 const std::u16string& funcName, std::int32_t keyCode, std::int32_t modifier) {
  for (const auto& item : items_) {
    if (item->FuncName == funcName) RaiseError(ErrorNumber::DuplicateKey);
  }
  const KeyChord key{keyCode, modifier};
  KeyText(key);  // raises for a key that has no text form
  items_.push_back(std::make_shared<Item>(Item{description, &target, funcName, key, key}));
  return items_.back();
}

const std::shared_ptr<Item>& Items::operator[](std::int32_t index) const {
  if (index < 1 || index > Count()) RaiseError(ErrorNumber::SubscriptOutOfRange);
  return items_[static_cast<std::size_t>(index) - 1];
}

std::shared_ptr<Item> Items::Find(const KeyChord& key) const {
  if (key.KeyCode == 0) return nullptr;
  for (const auto& item : items_) {
    if (item->Key == key) return item;
  }
  return nullptr;
}

}  // namespace quorvane::chordtrap

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "chordtrap/Item.h"

namespace quorvane::chordtrap {

/// The commands in the order of adding.
class Items {
 public:
  /// The item starts with its default key; key code and modifier 0 are none. `target` outlives the list. Raises error
  /// 457 for a name that is taken, 5 for a key out of range.
  std::shared_ptr<Item> Add(const std::u16string& description, ICommandTarget& target, const std::u16string& funcName,
                            std::int32_t keyCode, std::int32_t modifier);

  std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
  /// 1-based; raises error 9 outside the list.
  const std::shared_ptr<Item>& operator[](std::int32_t index) const;
  /// The first item with that key; null for no key.
  std::shared_ptr<Item> Find(const KeyChord& key) const;

  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  std::vector<std::shared_ptr<Item>> items_;
};

}  // namespace quorvane::chordtrap

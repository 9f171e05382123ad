#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "addin/core/Counted.h"

namespace quorvane {

/// An ordered list of strings, 1-based; duplicates and empty strings are allowed. Equality is exact.
class StringCollection : private Counted<StringCollection> {
 public:
  static constexpr std::string_view ClassName = "StringCollection";

  /// Raises error 9 outside the list.
  const std::u16string& Item(std::int32_t index) const;
  void Add(std::u16string_view v);
  /// Every entry equal to `v`.
  void Remove(std::u16string_view v);
  void RemoveAll();
  std::int32_t Count() const;
  bool Exists(std::u16string_view v) const;
  /// The first `count` entries (all when omitted) with `splitter` between them. A single empty entry gives the splitter
  /// itself.
  std::u16string Join(std::u16string_view splitter = {}, std::optional<std::int32_t> count = {}) const;
  /// Adds the parts of `src` between the splitters that are not empty; an empty splitter makes one part of it all.
  void AddSplit(std::u16string_view src, std::u16string_view splitter = {});

  /// NewEnum: walks the list from first to last.
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

  /// Empties the control with its Clear, then calls its AddItem for each entry, in list order.
  template <class ListControl>
  void FillList(ListControl& list) const {
    list.Clear();
    for (const std::u16string& item : items_) list.AddItem(item);
  }

 private:
  std::vector<std::u16string> items_;
};

}  // namespace quorvane

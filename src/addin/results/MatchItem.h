#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "addin/results/MatchField.h"
#include "platform/XmlTable.h"

namespace quorvane {

/// The element of one match in a result document, which must outlive it and not be cleared.
class MatchItem {
 public:
  /// `row` is 0-based and exists.
  MatchItem(XmlTable& document, std::size_t row) : document_(document), row_(row) {}

  std::int32_t Number(MatchField field) const { return document_.Number(row_, static_cast<std::size_t>(field)); }
  std::u16string Text(MatchField field) const { return document_.Text(row_, static_cast<std::size_t>(field)); }
  /// What XmlTable::Transform gives and raises.
  std::u16string Transform(XmlDocument& stylesheet) const { return document_.Transform(row_, stylesheet); }

 private:
  XmlTable& document_;
  std::size_t row_;
};

}  // namespace quorvane

#pragma once

#include <cstdint>
#include <string>

#include "addin/search/IPage.h"

namespace quorvane {

/// A page that shows a line for each match.
class IListPage : public IPage {
 public:
  /// Empties the list of shown lines.
  virtual void ClearList() = 0;
  /// Shows one line for the match `id` (1-based); a line of blanks alone is not shown.
  virtual void AddListItem(const std::u16string& line, std::int32_t id) = 0;
};

}  // namespace quorvane

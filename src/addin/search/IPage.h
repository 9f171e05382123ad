#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quorvane {

class ConditionSnap;
class ResultCollection;

/// What the search core and the result filter need of the page that owns them.
class IPage {
 public:
  virtual ~IPage() = default;

  virtual std::shared_ptr<ResultCollection> Result() const = 0;
  virtual std::shared_ptr<ConditionSnap> CondSnap() const = 0;
  virtual void SetTabCaption(const std::u16string& caption) = 0;

  /// Empties the list of shown lines.
  virtual void ClearList() = 0;
  /// Shows one line for the match `id` (1-based); a line of blanks alone is not shown.
  virtual void AddListItem(const std::u16string& line, std::int32_t id) = 0;
};

}  // namespace quorvane

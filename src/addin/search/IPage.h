#pragma once

#include <memory>

namespace quorvane {

class ConditionSnap;
class ResultCollection;

/// What the search core and the result filter need of the page that owns them.
class IPage {
 public:
  virtual ~IPage() = default;

  virtual std::shared_ptr<ResultCollection> Result() const = 0;
  virtual std::shared_ptr<ConditionSnap> CondSnap() const = 0;
};

}  // namespace quorvane

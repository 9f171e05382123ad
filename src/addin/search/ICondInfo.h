#pragma once

#include <memory>
#include <string>

#include "addin/settings/ConditionValues.h"

namespace quorvane {

class PositionInfo;

/// A search condition, read only.
class ICondInfo {
 public:
  virtual ~ICondInfo() = default;

  virtual std::u16string SearchStr() const = 0;  ///< never holds CR or LF
  virtual gsArea Area() const = 0;
  virtual gsMode Mode() const = 0;
  virtual bool MatchCase() const = 0;
  virtual gsCommentStat IgnoreComment() const = 0;
  virtual bool WholeWord() const = 0;      ///< read in gsCommon and gsPattern only
  virtual bool RegSingleLine() const = 0;  ///< read in gsRegular only
  virtual std::u16string ReplaceStr() const = 0;
  /// The region searched when Area is gsCurModule, gsCurProcedure or gsSelection.
  virtual std::shared_ptr<PositionInfo> PosInfo() = 0;
};

}  // namespace quorvane

#pragma once

#include <memory>
#include <string>

#include "addin/search/ICondInfo.h"

namespace quorvane {

/// The condition that the search dialog edits, as the shared settings hold it at the moment of each read. Its region
/// is not stored with them: it is where the user is. Error 91 without settings.
class LiveCondition final : public ICondInfo {
 public:
  std::u16string SearchStr() const override;
  gsArea Area() const override;
  gsMode Mode() const override;
  bool MatchCase() const override;
  gsCommentStat IgnoreComment() const override;
  bool WholeWord() const override;
  bool RegSingleLine() const override;
  std::u16string ReplaceStr() const override;
  /// Each read takes the region anew from the host, so it may fail as GetSelInfo does. Always the same object.
  std::shared_ptr<PositionInfo> PosInfo() override;

 private:
  std::shared_ptr<PositionInfo> mobjPosInfo;  ///< made at first use
};

}  // namespace quorvane

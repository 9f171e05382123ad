// Searching with a regular expression: the region's text goes to the platform's engine as one string, CR LF pairs
// included, and the offsets of its matches are turned back into places of the module. One OffsetIndex serves all
// matches of a region, so that a match costs a binary search and not a reading of the module.

#include "addin/search/ICondInfo.h"
#include "addin/search/OffsetIndex.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/TaskManager.h"
#include "base/Checked.h"
#include "platform/RegExp.h"
#include "vbide/VBIDE.h"

namespace quorvane {

void TaskManager::ScanRegExp(PositionInfo& pos) {
  const std::int32_t baseLine = pos.mlngY1;
  const std::int32_t first = pos.mlngX1;
  const auto matches = Prepared(scanRegExp_, !mobjCond->RegSingleLine()).Execute(pos.MatchStr());
  OffsetIndex index;
  for (const RegExpMatch& found : matches) {
    const auto match = std::make_shared<PositionInfo>();
    match->mobjCodeObject = pos.mobjCodeObject;
    match->SetStartPos(baseLine, Checked32(std::int64_t{first} + found.FirstIndex), index);
    match->SetEndPos(baseLine, Checked32(std::int64_t{first} + found.FirstIndex + found.Length), index);
    line_ = match->mlngY1;
    Take(match);
  }
}

bool TaskManager::IsWanted(const PositionInfo& pos) const {
  switch (mobjCond->IgnoreComment()) {
    case gsIncludeComment:
      return true;
    case gsExcludeComment:
      return !pos.HaveComment();
    case gsCommentOnly:
      return pos.HaveComment();
  }
  return true;
}

}  // namespace quorvane

#include "addin/search/LiveCondition.h"

#include "addin/core/Globals.h"
#include "addin/search/PositionInfo.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"

namespace quorvane {

namespace {

const GlobalSetting& Setting() {
  return Deref(Globals::gobjSetting);
}

}  // namespace

std::u16string LiveCondition::SearchStr() const {
  return Setting().mstrSearchStr;
}

gsArea LiveCondition::Area() const {
  return Setting().menumArea;
}

gsMode LiveCondition::Mode() const {
  return Setting().menumMode;
}

bool LiveCondition::MatchCase() const {
  return Setting().mblnMatchCase;
}

gsCommentStat LiveCondition::IgnoreComment() const {
  return Setting().menumIgnoreComment;
}

bool LiveCondition::WholeWord() const {
  return Setting().mblnWholeWord;
}

bool LiveCondition::RegSingleLine() const {
  return Setting().mblnRegSingleLine;
}

std::u16string LiveCondition::ReplaceStr() const {
  return Setting().mstrReplaceStr;
}

std::shared_ptr<PositionInfo> LiveCondition::PosInfo() {
  if (!mobjPosInfo) mobjPosInfo = std::make_shared<PositionInfo>();
  mobjPosInfo->GetSelInfo(Area());
  return mobjPosInfo;
}

}  // namespace quorvane

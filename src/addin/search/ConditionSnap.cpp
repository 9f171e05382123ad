#include "addin/search/ConditionSnap.h"

#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/ObjStat.h"
#include "addin/search/IPage.h"
#include "addin/search/PositionInfo.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/Text.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

std::u16string Text(std::int32_t id, const std::vector<std::u16string>& args = {}) {
  return Globals::Language().GetString(id, args);
}

}  // namespace

ConditionSnap::ConditionSnap() : mobjPosInfo(std::make_shared<PositionInfo>()) {
  ObjStat::AddObject(this);
}
ConditionSnap::~ConditionSnap() {
  ObjStat::RemoveObject(this);
}

void ConditionSnap::Setup(IPage& p) {
  mobjParent = &p;
}

void ConditionSnap::TearDown() {
  mobjParent = nullptr;
}

void ConditionSnap::TakeSnap() {
  const auto project = Deref(Globals::gobjVBE).ActiveVBProject();
  mstrActiveProject = project ? project->Name() : std::u16string();
  const GlobalSetting& live = Deref(Globals::gobjSetting);
  mstrSearchStr = live.mstrSearchStr;
  menumArea = live.menumArea;
  menumMode = live.menumMode;
  mblnMatchCase = live.mblnMatchCase;
  menumIgnoreComment = live.menumIgnoreComment;
  mblnWholeWord = live.mblnWholeWord;
  mblnRegSingleLine = live.mblnRegSingleLine;
  Deref(mobjPosInfo).GetSelInfo(menumArea);
  Deref(mobjParent).SetTabCaption(Text(204, {mstrSearchStr}));
}

std::u16string ConditionSnap::ReplaceStr() const {
  return Deref(Globals::gobjSetting).mstrReplaceStr;
}

std::u16string ConditionSnap::Description() const {
  std::u16string text = AreaDescription() + ModeDescription() + MatchCaseDescription() + IgnoreCommentDescription() +
                        (menumMode == gsRegular ? RegSingleLineDescription() : WholeWordDescription());
  if (!text.empty()) text.pop_back();
  return text;
}

std::u16string ConditionSnap::AreaDescription() const {
  const PositionInfo& pos = Deref(mobjPosInfo);
  switch (menumArea) {
    case gsAllProjects:
      return Text(189);
    case gsCurModule:
      return Text(190, {Deref(pos.component()).Name()});
    case gsCurProcedure:
      return Text(191, {pos.ProcName()});
    case gsCurProject:
      return Text(192, {mstrActiveProject});
    case gsSelection:
      return Text(193, {Deref(pos.component()).Name(), ToText(pos.mlngY1), ToText(pos.ScreenX1()), ToText(pos.mlngY2),
                        ToText(pos.ScreenX2())});
  }
  return {};
}

std::u16string ConditionSnap::ModeDescription() const {
  switch (menumMode) {
    case gsCommon:
      return Text(194);
    case gsPattern:
      return Text(195);
    case gsRegular:
      return Text(196);
  }
  return {};
}

std::u16string ConditionSnap::MatchCaseDescription() const {
  return mblnMatchCase ? Text(197) : std::u16string();
}

std::u16string ConditionSnap::IgnoreCommentDescription() const {
  switch (menumIgnoreComment) {
    case gsCommentOnly:
      return Text(198);
    case gsExcludeComment:
      return Text(199);
    case gsIncludeComment:
      return Text(200);
  }
  return {};
}

std::u16string ConditionSnap::WholeWordDescription() const {
  return mblnWholeWord ? Text(201) : std::u16string();
}

std::u16string ConditionSnap::RegSingleLineDescription() const {
  return Text(mblnRegSingleLine ? 202 : 203);
}

}  // namespace quorvane

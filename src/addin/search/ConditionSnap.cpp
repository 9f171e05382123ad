#include "addin/search/ConditionSnap.h"

#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/search/PositionInfo.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/Text.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

std::u16string Text(StringId id, const std::vector<std::u16string>& args = {}) {
  return Globals::Language().GetString(id, args);
}

}  // namespace

ConditionSnap::ConditionSnap() : mobjPosInfo(std::make_shared<PositionInfo>()) {}
ConditionSnap::~ConditionSnap() = default;

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
  Named.Raise(Text(StringId::TabCaption, {mstrSearchStr}));
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
      return Text(StringId::StatusAllProjects);
    case gsCurModule:
      return Text(StringId::StatusModule, {Deref(pos.component()).Name()});
    case gsCurProcedure:
      return Text(StringId::StatusProcedure, {pos.ProcName()});
    case gsCurProject:
      return Text(StringId::StatusProject, {mstrActiveProject});
    case gsSelection:
      return Text(StringId::StatusSelection, {Deref(pos.component()).Name(), ToText(pos.mlngY1), ToText(pos.ScreenX1()),
                                              ToText(pos.mlngY2), ToText(pos.ScreenX2())});
  }
  return {};
}

std::u16string ConditionSnap::ModeDescription() const {
  switch (menumMode) {
    case gsCommon:
      return Text(StringId::StatusCommon);
    case gsPattern:
      return Text(StringId::StatusPattern);
    case gsRegular:
      return Text(StringId::StatusRegular);
  }
  return {};
}

std::u16string ConditionSnap::MatchCaseDescription() const {
  return mblnMatchCase ? Text(StringId::StatusMatchCase) : std::u16string();
}

std::u16string ConditionSnap::IgnoreCommentDescription() const {
  switch (menumIgnoreComment) {
    case gsCommentOnly:
      return Text(StringId::StatusCommentOnly);
    case gsExcludeComment:
      return Text(StringId::StatusNoComment);
    case gsIncludeComment:
      return Text(StringId::StatusComment);
  }
  return {};
}

std::u16string ConditionSnap::WholeWordDescription() const {
  return mblnWholeWord ? Text(StringId::StatusWholeWord) : std::u16string();
}

std::u16string ConditionSnap::RegSingleLineDescription() const {
  return Text(mblnRegSingleLine ? StringId::StatusSingleLine : StringId::StatusMultiLine);
}

}  // namespace quorvane

#include "addin/search/TaskManager.h"

#include "addin/core/ErrBuffer.h"
#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/Utilities.h"
#include "addin/search/ConditionSnap.h"
#include "addin/search/IPage.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/ResultCollection.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "platform/MessageLoop.h"
#include "platform/Platform.h"
#include "platform/RegExp.h"
#include "vbide/VBIDE.h"

namespace quorvane {

// A task walks an area module by module and asks the host for one match after another, each search beginning where the
// last match ended. After every match the message loop gets a turn and cancelling is looked at, so that anything may
// happen meanwhile: the user may edit, close the page or end the connection. The task therefore keeps its condition
// alive by itself and holds no text across a turn. invariant: each TaskBegin is followed by one TaskDone, also when the
// task raises.

namespace {
constexpr std::int32_t kFindBit = 1;
constexpr std::int32_t kReplaceBit = 2;

/// Ends the scan of a module whose error was taken over already.
struct ModuleLeft {};

}  // namespace

TaskManager::TaskManager() = default;
TaskManager::~TaskManager() = default;

GlobalSetting& TaskManager::Setting() const {
  return Deref(Globals::gobjSetting);
}

void TaskManager::Setup(IPage& p) {
  mobjParent = &p;
  mcolResult = p.Result();
  mobjCondSnap = p.CondSnap();
}

void TaskManager::TearDown() {
  mobjParent = nullptr;
  mcolResult.reset();
  mobjCondSnap.reset();
}

Event<std::int32_t>& TaskManager::AnyBegin() {
  static Event<std::int32_t> begin;
  return begin;
}

Event<std::int32_t>& TaskManager::AnyDone() {
  static Event<std::int32_t> done;
  return done;
}

void TaskManager::Run(std::int32_t tt) {
  const std::shared_ptr<ConditionSnap> kept = mobjCondSnap;  // mobjCond points at it, also after a TearDown
  try {
    mblnRunning = true;
    mblnCancel = false;
    mlngTaskType = tt;
    AnyBegin().Raise(tt);
    TaskBegin.Raise(tt);
    if (tt == kTaskSearch) Deref(mobjCondSnap).TakeSnap();
    mobjCond = tt == kTaskReplaceAll ? static_cast<ICondInfo*>(&live_) : mobjCondSnap.get();
    if ((tt & kFindBit) != 0) Deref(mcolResult).Clear();
    ScanArea();
  } catch (...) {
    ErrBuffer error;
    error.Save();
    mblnRunning = false;
    TaskDone.Raise(tt);
    AnyDone().Raise(tt);
    error.Raise();
  }
  mblnRunning = false;
  TaskDone.Raise(tt);
  AnyDone().Raise(tt);
}

void TaskManager::ScanArea() {
  const auto components = [](const vbide::VBProject& project) { return Deref(project.VBComponents()).Items(); };
  switch (Deref(mobjCond).Area()) {
    case gsCurModule:
    case gsCurProcedure:
    case gsSelection: {
      const auto region = mobjCond->PosInfo();
      ScanModule(Deref(region));
      break;
    }
    case gsCurProject: {
      PositionInfo pos;
      if (const auto project = Deref(Globals::gobjVBE).ActiveVBProject()) ScanComponents(pos, components(*project));
      break;
    }
    case gsAllProjects: {
      PositionInfo pos;
      for (const auto& project : Deref(Globals::gobjVBE).VBProjects()) ScanComponents(pos, components(*project));
      break;
    }
  }
}

template <class Components>
void TaskManager::ScanComponents(PositionInfo& pos, const Components& components) {
  for (const auto& component : components) {
    const auto code = component->CodeModule();
    if (code && SurelyLacksMatches(*code)) {  // such a module has lines, as a normal component has
      OnScanModule.Raise(component->Name());
      continue;
    }
    if (!Deref(Globals::gobjUtilities).IsNormalComp(*component)) continue;
    pos.GetAllCode(code);
    ScanModule(pos);
  }
}

/// A module without a match costs one question where the host can answer it. A replace by anything but a regular
/// expression is an error that the scan raises.
bool TaskManager::SurelyLacksMatches(const vbide::CodeModule& code) {
  const bool matchCase = mobjCond->MatchCase();
  if (mobjCond->Mode() != gsRegular) {
    return (mlngTaskType & kReplaceBit) == 0 &&
           code.SurelyLacks(mobjCond->SearchStr(), mobjCond->WholeWord(), matchCase, mobjCond->Mode() == gsPattern);
  }
  return code.SurelyLacksAll(Prepared(scanRegExp_, !mobjCond->RegSingleLine()).RequiredTexts(), matchCase);
}

void TaskManager::ScanModule(PositionInfo& pos) {
  OnScanModule.Raise(Deref(pos.component()).Name());
  line_ = pos.mlngY1;
  try {
    ScanRegion(pos);
  } catch (const ModuleLeft&) {
  } catch (const Error& error) {
    bool goOn = false;
    PositionInfo where;
    where.mobjCodeObject = pos.mobjCodeObject;
    where.mlngY1 = where.mlngY2 = line_;
    if (error.Number != kErrUserCanceled) OnModuleError.Raise(where, error, goOn);
    if (!goOn) throw;
  }
}

void TaskManager::ScanRegion(PositionInfo& pos) {
  const bool replace = (mlngTaskType & kReplaceBit) != 0;
  const bool find = (mlngTaskType & kFindBit) != 0;
  if (mobjCond->Mode() == gsRegular) {
    if (replace) {
      ReplaceRegExp(pos);
    } else if (find) {
      ScanRegExp(pos);
    }
  } else if (replace) {
    Deref(Globals::gobjErrorManager).Raise(kErrReplaceMode, Globals::Language().GetString(StringId::ReplaceModeWrong));
  } else if (find) {
    ScanFind(pos);
  }
}

void TaskManager::ScanFind(PositionInfo& pos) {
  std::int32_t limit = 1;
  try {
    limit = pos.ScreenX2();
  } catch (const Error&) {
    ScanFindTo(pos, limit);  // what stands above the line without a last column
    line_ = pos.mlngY2;
    throw;
  }
  ScanFindTo(pos, limit);
}

/// Up to screen column `limit` of the region's last line.
void TaskManager::ScanFindTo(PositionInfo& pos, std::int32_t limit) {
  vbide::Selection range{pos.mlngY1, pos.ScreenX1(), pos.mlngY2, limit};
  for (;;) {
    const bool found = Deref(pos.mobjCodeObject)
                           .Find(mobjCond->SearchStr(), range, mobjCond->WholeWord(), mobjCond->MatchCase(),
                                 mobjCond->Mode() == gsPattern);
    if (!found) return;
    if (range.EndLine > pos.mlngY2 || (range.EndLine == pos.mlngY2 && range.EndColumn > limit)) return;
    const auto match = std::make_shared<PositionInfo>();
    match->mobjCodeObject = pos.mobjCodeObject;
    match->mlngY1 = line_ = range.StartLine;
    match->mlngY2 = range.EndLine;
    match->SetScreenColumns(range.StartColumn, range.EndColumn);
    Take(match);
    range = {range.EndLine, range.EndColumn, pos.mlngY2, limit};
    if (range.StartLine == range.EndLine && range.StartColumn == range.EndColumn) return;
  }
}

/// A regular expression also finds what lies beyond the last column that can be told. Whoever takes over errors in a
/// module is asked about such a match before it gets a number; for others it counts like any match.
void TaskManager::LeaveIfUntold(const PositionInfo& match) const {
  try {
    match.CheckScreenColumns();
  } catch (const Error& error) {
    bool goOn = false;
    OnModuleError.Raise(match, error, goOn);
    if (goOn) throw ModuleLeft();
  }
}

void TaskManager::Take(const std::shared_ptr<PositionInfo>& match) {
  if (IsWanted(*match)) {
    LeaveIfUntold(*match);
    Deref(mcolResult).Add(match);
  }
  CheckCancel();
}

void TaskManager::CheckCancel() {
  ThePlatform().Loop().DoEvents();
  Query.Raise(mblnCancel);
  if (mblnCancel)
    Deref(Globals::gobjErrorManager).Raise(kErrUserCanceled, Globals::Language().GetString(StringId::UserCanceled));
}

RegExp& TaskManager::Prepared(std::unique_ptr<RegExp>& regExp, bool multiline) {
  if (!regExp) regExp = ThePlatform().NewRegExp();
  regExp->Global = true;
  regExp->Multiline = multiline;
  regExp->IgnoreCase = !mobjCond->MatchCase();
  regExp->Pattern = mobjCond->SearchStr();
  return *regExp;
}

}  // namespace quorvane

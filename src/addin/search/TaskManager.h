#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "addin/core/Counted.h"
#include "addin/search/LiveCondition.h"
#include "base/Event.h"

namespace quorvane {

class ConditionSnap;
class Error;
class GlobalSetting;
class IPage;
class PositionInfo;
class RegExp;
class ResultCollection;

namespace vbide {
class CodeModule;
}

/// Types of a task, as bits: bit 0 is a find, which clears the results first, bit 1 a replace.
inline constexpr std::int32_t kTaskSearch = 1;
inline constexpr std::int32_t kTaskReplaceAll = 2;
inline constexpr std::int32_t kTaskRepeatSearch = 5;

/// Runs one task at a time, from start to end inside one call of Run: takes the condition, walks the area over modules
/// and hands each module to the matcher or the replacer. Listeners and the user get their turn in a yield to the
/// message loop after each match.
class TaskManager : private Counted<TaskManager> {
 public:
  static constexpr std::string_view ClassName = "TaskManager";

  TaskManager();
  ~TaskManager();

  bool mblnCancel = false;      ///< set true by any party to stop the run; keeps its value after it
  IPage* mobjParent = nullptr;  ///< owner, from Setup to TearDown; null for a replace all

  GlobalSetting& Setting() const;
  bool Running() const { return mblnRunning; }
  /// Runs a task to its end and raises TaskDone exactly once, also after a failure. Failures and a cancel (error
  /// 0x80040201) reach the caller; results found and edits made until then stay.
  void Run(std::int32_t tt);
  void Setup(IPage& p);
  void TearDown();

  /// Of every task, whoever runs it: before its TaskBegin, and after its TaskDone, also when it failed.
  static Event<std::int32_t>& AnyBegin();
  static Event<std::int32_t>& AnyDone();

  Event<std::int32_t> TaskBegin;              ///< TaskType
  Event<std::int32_t> TaskDone;               ///< TaskType
  Event<bool&> Query;                         ///< Cancel; after each match
  Event<const std::u16string&> OnScanModule;  ///< name of the component, before each module
  /// How many places a replace has changed in a region, after each one with matches; empty: nobody counts, which costs
  /// nothing.
  std::function<void(std::int32_t)> OnReplaced;
  /// An error in a module, with the place where it happened; one who sets `goOn` takes it over, and the next module
  /// follows. Not raised for a cancel.
  Event<const PositionInfo&, const Error&, bool&> OnModuleError;

 private:
  void ScanArea();
  template <class Components>
  void ScanComponents(PositionInfo& pos, const Components& components);
  void ScanModule(PositionInfo& pos);
  bool SurelyLacksMatches(const vbide::CodeModule& code);
  void ScanRegion(PositionInfo& pos);
  void ScanFind(PositionInfo& pos);
  void ScanFindTo(PositionInfo& pos, std::int32_t limit);
  void CheckCancel();

  // Regular expressions and comment filter
  void ScanRegExp(PositionInfo& pos);
  bool IsWanted(const PositionInfo& pos) const;
  void LeaveIfUntold(const PositionInfo& match) const;
  void Take(const std::shared_ptr<PositionInfo>& match);

  // Replace
  void ReplaceRegExp(PositionInfo& pos);
  void ReplaceMultiLine(PositionInfo& pos);
  void ReplaceSingleLine(PositionInfo& pos);
  RegExp& Prepared(std::unique_ptr<RegExp>& regExp, bool multiline);

  std::int32_t mlngTaskType = 0;
  std::int32_t line_ = 1;  ///< that the scan has come to
  bool mblnRunning = false;
  std::shared_ptr<ConditionSnap> mobjCondSnap;
  std::shared_ptr<ResultCollection> mcolResult;
  LiveCondition live_;            ///< the condition of a replace all
  ICondInfo* mobjCond = nullptr;  ///< the condition of this run
  std::unique_ptr<RegExp> scanRegExp_;
  std::unique_ptr<RegExp> multiLineRegExp_;
  std::unique_ptr<RegExp> singleLineRegExp_;
};

}  // namespace quorvane

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "addin/results/FilterManager.h"
#include "addin/search/IPage.h"
#include "addin/search/TaskManager.h"

namespace quorvane::vbide {
class CodeModule;
}

namespace quorvane::cli {

/// The page of a search without a window: it passes matches and lines on as they come. Where no lines are shown there
/// is no result document either.
class ResultPage final : public IPage {
 public:
  /// `maxCount`: of how many lines of a module matches are told at most.
  ResultPage(bool showsLines, std::optional<std::int32_t> maxCount);
  ~ResultPage() override;
  ResultPage(const ResultPage&) = delete;
  ResultPage& operator=(const ResultPage&) = delete;

  std::shared_ptr<ResultCollection> Result() const override { return result_; }
  std::shared_ptr<ConditionSnap> CondSnap() const override { return condSnap_; }

  /// For each match that can be told.
  std::function<void(const PositionInfo&)> OnMatch;
  /// For each line that is shown; before OnMatch of the same match.
  std::function<void(const std::u16string& line, std::int32_t id)> OnLine;

  /// Raises the stylesheet's own error when it failed for a match.
  void CheckLines();

  std::int32_t CountOfTold() const { return told_; }
  /// Of a page that shows lines.
  FilterManager& Filter() { return *mobjFilter; }

 private:
  std::shared_ptr<ResultCollection> result_;
  std::shared_ptr<ConditionSnap> condSnap_;

 public:
  TaskManager mobjTask;

 private:
  void NoteFailure(std::int32_t id);
  void TakeLine(const std::u16string& line, std::int32_t id);
  /// Whether the match, which is the last one, is within what the limit lets through.
  bool Wanted(const PositionInfo& pi);

  std::optional<FilterManager> mobjFilter;
  std::optional<std::int32_t> maxCount_;
  const vbide::CodeModule* code_ = nullptr;  ///< of the last match, with its line
  std::int32_t line_ = 0;
  std::int32_t lines_ = 0;        ///< lines with a match in that module so far
  std::int32_t told_ = 0;         ///< number of matches told
  std::int32_t lastLine_ = 0;     ///< the match that the last line came for, shown or not
  std::int32_t firstFailed_ = 0;  ///< the first match without a line; 0: none
  Subscription filterAdd_;
  Subscription resultAdd_;
};

}  // namespace quorvane::cli

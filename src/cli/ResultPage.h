#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "addin/results/FilterManager.h"
#include "addin/search/IPage.h"
#include "addin/search/TaskManager.h"

namespace quorvane::cli {

/// The page of a search without a window: it passes matches and lines on as they come. Where no lines are shown there
/// is no result document either.
class ResultPage final : public IPage {
 public:
  explicit ResultPage(bool showsLines);
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

  std::int32_t CountOfTold() const;
  /// Of a page that shows lines.
  FilterManager& Filter() { return *mobjFilter; }

 private:
  std::shared_ptr<ResultCollection> result_;
  std::shared_ptr<ConditionSnap> condSnap_;

 public:
  TaskManager mobjTask;

 private:
  void TakeLine(const std::u16string& line, std::int32_t id);
  /// Raises the error of a match that cannot be told, such as that of a line too long for a screen column.
  void CheckColumns(const PositionInfo& pi);

  std::optional<FilterManager> mobjFilter;
  std::int32_t untold_ = 0;       ///< number of matches that could not be told
  std::int32_t lastLine_ = 0;     ///< the match that the last line came for, shown or not
  std::int32_t firstFailed_ = 0;  ///< the first match without a line; 0: none
  Subscription filterAdd_;
  Subscription resultAdd_;
};

}  // namespace quorvane::cli

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "addin/results/FilterManager.h"
#include "addin/search/IPage.h"
#include "addin/search/TaskManager.h"

namespace quorvane::cli {

/// The page of a search without a window: it passes matches and lines on as they come.
class ResultPage final : public IPage {
 public:
  ResultPage();
  ~ResultPage() override;
  ResultPage(const ResultPage&) = delete;
  ResultPage& operator=(const ResultPage&) = delete;

  std::shared_ptr<ResultCollection> Result() const override { return result_; }
  std::shared_ptr<ConditionSnap> CondSnap() const override { return condSnap_; }
  void SetTabCaption(const std::u16string&) override {}
  void ClearList() override {}
  void AddListItem(const std::u16string& line, std::int32_t id) override;

  /// For each match, once its element stands in the result document.
  std::function<void(const PositionInfo&)> OnMatch;
  /// For each line that is shown; before OnMatch of the same match.
  std::function<void(const std::u16string& line, std::int32_t id)> OnLine;

  /// Raises the stylesheet's own error when it failed for a match.
  void CheckLines();

  /// The matches that could not be told, by ID: their elements are incomplete.
  const std::set<std::int32_t>& Untold() const { return untold_; }
  std::int32_t CountOfTold() const;

 private:
  std::shared_ptr<ResultCollection> result_;
  std::shared_ptr<ConditionSnap> condSnap_;

 public:
  TaskManager mobjTask;
  FilterManager mobjFilter;

 private:
  /// Raises the error that left a match's element incomplete, such as that of a line too long for a screen column.
  void CheckElement(const PositionInfo& pi);

  std::set<std::int32_t> untold_;
  std::int32_t lastLine_ = 0;     ///< the match that the last line came for, shown or not
  std::int32_t firstFailed_ = 0;  ///< the first match without a line; 0: none
  Subscription filterAdd_;
  Subscription resultAdd_;
};

}  // namespace quorvane::cli

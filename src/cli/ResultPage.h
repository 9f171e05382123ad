#pragma once

#include <cstdint>
#include <functional>
#include <memory>
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

 private:
  std::shared_ptr<ResultCollection> result_;
  std::shared_ptr<ConditionSnap> condSnap_;

 public:
  TaskManager mobjTask;
  FilterManager mobjFilter;

 private:
  /// Raises the error that kept a match out of the result document, such as that of a line too long for a screen
  /// column; all elements behind it would stand at wrong numbers.
  void CheckElement(const PositionInfo& pi) const;

  std::int32_t lastLine_ = 0;     ///< the match that the last line came for, shown or not
  std::int32_t firstFailed_ = 0;  ///< the first match without a line; 0: none
  Subscription filterAdd_;
  Subscription resultAdd_;
};

}  // namespace quorvane::cli

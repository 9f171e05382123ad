#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "addin/core/Counted.h"
#include "addin/results/IResultPage.h"
#include "base/Event.h"

namespace quorvane::forms {
class Controls;
class Label;
class OwnerDrawList;
class PictureBox;
}  // namespace quorvane::forms

namespace quorvane {

class Error;
class ListPainter;
class PositionInfo;

/// One tab of the result tool window and everything behind it: condition, task, matches, result document and list.
/// Pages share nothing but the global services. Made by make_shared alone; a task or a jump that is under way keeps the
/// page alive when it is closed meanwhile.
class Page final : public IResultPage, public std::enable_shared_from_this<Page>, private Counted<Page> {
 public:
  static constexpr std::string_view ClassName = "Page";

  Page();
  ~Page() override;

  // From Setup to TearDown, but the tab and the key, which stay.
  std::shared_ptr<forms::Tab> mobjTab;
  std::shared_ptr<ListPainter> mobjListPainter;
  std::shared_ptr<ResultCollection> mcolResult;
  std::shared_ptr<ConditionSnap> mobjCondSnap;
  std::u16string mstrKey;
  std::shared_ptr<TaskManager> mobjTask;
  std::shared_ptr<FilterManager> mobjFilter;
  std::shared_ptr<forms::PictureBox> mobjPanel;
  std::shared_ptr<forms::OwnerDrawList> mlstResultList;
  std::shared_ptr<forms::Label> mobjLabel;

  WindowHandle ListHWnd() const override;
  /// A line of blanks alone adds no row; the status line follows in any case.
  void AddListItem(const std::u16string& line, std::int32_t id) override;
  /// Does nothing before the first search. Opens the tool window when there are matches.
  void UpdateStatus() override;
  /// Selects the next row, where there is one, and shows the selected row's match in its code window.
  void LocateNextResult() override;
  void LocatePrevResult() override;
  /// Esc hides the tool window, Enter shows the selected row's match.
  void ProcessKeyDown(std::int16_t keyCode, std::int16_t shift) override;
  /// The control collection of the document.
  forms::Controls& Controls() const;
  /// An empty list and nothing to repeat; matches and result document stay.
  void Reset() override;
  void ClearList() override;
  bool CanRefresh() const override { return mblnCanRefresh; }
  /// Repeats the search of this page; returns when it is over, or at once while a task of the page runs. Errors of the
  /// task reach the caller.
  void RefreshResult() override;
  void Setup(const std::shared_ptr<forms::Tab>& theTab) override;
  void TearDown() override;

  std::shared_ptr<ResultCollection> Result() const override { return mcolResult; }
  std::shared_ptr<ConditionSnap> CondSnap() const override { return mobjCondSnap; }
  std::u16string Key() const override { return mstrKey; }
  void SetKey(const std::u16string& key) override { mstrKey = key; }
  std::shared_ptr<TaskManager> Task() const override { return mobjTask; }
  std::shared_ptr<FilterManager> Filter() const override { return mobjFilter; }
  std::shared_ptr<forms::Control> Panel() const override;

 private:
  void AddControls(const std::u16string& key);
  void Listen();
  template <class Body>
  void Guarded(Body body);

  void mobjFilter_OnAdd(const std::u16string& line, std::int32_t id);
  void mobjFilter_OnClear();
  void mobjFilter_OnRefresh();
  void mobjTask_TaskBegin(std::int32_t taskType);
  void mobjTask_TaskDone();
  void mobjTask_OnModuleError(const PositionInfo& where, const Error& error, bool& goOn);
  void mobjPanel_Resize();
  void MouseDown(std::int16_t button);
  void mlstResultList_MouseMove(float x, float y);

  void LocateSelected();
  void PreviewIndex(std::int32_t index);

  bool mblnHasResult = false;   ///< a search has been started here
  bool mblnCanRefresh = false;  ///< this page has a search to repeat
  bool locatingNext_ = false;
  bool locatingPrev_ = false;
  std::shared_ptr<PositionInfo> lastPreviewed_;
  std::shared_ptr<PositionInfo> failedPreview_;  ///< one whose failure was told; not tried again while the mouse stays
  std::vector<std::u16string> tooLong_;  ///< what the task of the moment has to tell of lines that are too long

  std::vector<Subscription> subscriptions_;  ///< from Setup to TearDown
};

}  // namespace quorvane

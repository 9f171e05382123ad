#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "addin/core/ISearchDialog.h"
#include "addin/core/IVersionUI.h"
#include "addin/dialogs/FramedDialog.h"
#include "addin/dialogs/SearchDialogControls.h"
#include "base/Event.h"

namespace quorvane::forms {
class DataObject;
}  // namespace quorvane::forms

namespace quorvane {

class GlobalSetting;
class PageManager;
class StringCollection;
class TaskManager;

/// The modeless dialog in which the user says what to search for. It keeps no condition of its own: every change in a
/// control is written to the shared settings at once, from which the tasks read. It follows the task of the current
/// page, or the replace that it has started, through that task's events, since a run ends only after them.
class frmSearchDialog final : public FramedDialog,
                              public SearchDialogControls,
                              public IVersionUI,
                              public ISearchDialog {
 public:
  frmSearchDialog();
  ~frmSearchDialog() override;

  GlobalSetting& Setting() const;
  /// Shows the dialog, which takes over the selection of the active code pane unless its task is running. A failing
  /// step is dropped.
  void ShowEx() override;
  /// Fills every control from the settings.
  void MemToScreen();
  /// `src` without its CRs and LFs.
  static std::u16string FilterSpecialChar(std::u16string_view src);
  /// Writes every control to the settings.
  void ScreenToMem();

  /// IVersionUI_Update: all captions.
  void Update() override;

  Event<std::int32_t> SearchEnded;  ///< a search from here came to its end, with so many matches
  /// A replace from here ended, be it by an error: the places that it changed, and the modules with such.
  Event<std::int32_t, std::int32_t> ReplaceEnded;

 protected:
  void Form_Load() override;
  /// The close box hides the form; nobody else is held back.
  void Form_QueryUnload(bool& cancel, forms::UnloadMode mode) override;
  void Form_Unload(bool& cancel) override;
  void Form_KeyDown(std::int16_t keyCode, std::int16_t shift) override;
  void Form_MouseDown(std::int16_t button, std::int16_t shift, float x, float y) override;
  void Form_DblClick() override;

 private:
  // Condition
  void ListenToCondition();
  void UpdateControlState();
  void AddToHistory(forms::ComboBox& cmb, StringCollection& hist);
  void LoadFromSelection();
  static bool IsSingleLine(std::u16string_view s);
  void Condition_Changed();
  void chkIgnoreComment_Click();
  static void OLEDragDrop(forms::ComboBox& cmb, const forms::DataObject& data);

  // Tasks
  void ListenToCommands();
  bool IsTaskRunning() const;
  bool NeedNewPage() const;
  void UpdateTaskState();
  void EnableControls(bool b);
  void Watch(std::shared_ptr<TaskManager> task);
  void WatchActivePage();
  void RunTask(std::int32_t tt);
  void RunReplace(TaskManager& task);
  void cmdSearch_Click();
  void cmdReplace_Click();
  void cmdCancel_Click();
  void mobjTaskMgr_TaskBegin();
  void mobjTaskMgr_OnScanModule(const std::u16string& name);
  void mobjTaskMgr_TaskDone();
  void mobjPageMgr_TabChange();

  // Menu
  void ListenToMenu();
  void ShowSearchTo();
  void SearchTo(std::int32_t where);
  void ShowModal(std::u16string_view form);

  bool mblnUpdating = false;          ///< from the first to the last step of MemToScreen; no event writes meanwhile
  std::int16_t mintCommentState = 0;  ///< what chkIgnoreComment shows
  std::int16_t mintCommentDepth = 0;  ///< calls of chkIgnoreComment_Click under way
  std::shared_ptr<TaskManager> mobjTaskMgr;  ///< the watched task
  std::shared_ptr<PageManager> mobjPageMgr;
  std::vector<Subscription> taskEvents_;  ///< of mobjTaskMgr
  Subscription onTabChange_;
};

}  // namespace quorvane

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "addin/core/Counted.h"
#include "addin/core/ILib.h"
#include "addin/core/IVersionUI.h"
#include "addin/results/IResultListDoc.h"
#include "base/Event.h"
#include "platform/forms/CommonDialog.h"
#include "platform/forms/Controls.h"
#include "platform/forms/ImageList.h"
#include "platform/forms/Menu.h"
#include "platform/forms/Timer.h"
#include "vbide/VBIDE.h"

namespace quorvane {

class IResultPage;
class PageManager;
class TaskManager;

/// The document inside the result tool window: the tab bar of the result pages, the menus of the list and of the bar,
/// the save dialog and the timer that repeats a search. It holds no results: pages add their controls to it, and its
/// commands go to the active page.
///
/// The view's side: Show when the document comes on the screen, Resize with its size, KeyDown for a key that no control
/// of the document took; it shows vbalDTabControl1, each tab's panel below the bar, and the menus when they pop up.
class ResultDialog final : public vbide::Document,
                           public ILib,
                           public IResultListDoc,
                           public IVersionUI,
                           private Counted<ResultDialog> {
 public:
  static constexpr std::string_view ClassName = "ResultDialog";
  /// By which the host makes it.
  static constexpr std::u16string_view ProgId = u"QuorvaneForVB6.ResultDialog";

  /// With the tab after all page tabs on its bar.
  ResultDialog();
  ~ResultDialog() override;

  void Setup() override;
  void TearDown() override;
  /// The captions of both menus.
  void Update() override;

  forms::Controls& Controls() override { return controls_; }
  void PopupMenu() override { mnuResultOption.PopUp(); }
  bool ShowPreview() const override { return mnuCodePreview.Checked(); }
  WindowHandle hwnd() const override { return hwnd_; }
  std::shared_ptr<forms::TabControl> TabControl() override { return vbalDTabControl1; }

  void SetHwnd(WindowHandle hwnd) { hwnd_ = hwnd; }
  void Show();
  /// In twips.
  void Resize(std::int32_t width, std::int32_t height);
  void KeyDown(std::int16_t keyCode, std::int16_t shift);

  const std::shared_ptr<forms::ImageList> ImageList1;
  const std::shared_ptr<forms::TabControl> vbalDTabControl1;
  forms::Timer TimerRunTask{10, false};
  forms::CommonDialog CommonDialog1;

  forms::Menu mnuResultOption;
  forms::Menu& mnuShowSearchDialog = mnuResultOption.Add();
  forms::Menu& mnuRefreshResult = mnuResultOption.Add(forms::Menu::Above::Line);
  forms::Menu& mnuCancelSearch = mnuResultOption.Add();
  forms::Menu& mnuCodePreview = mnuResultOption.Add(forms::Menu::Above::Line);
  forms::Menu& mnuReplacePreview = mnuResultOption.Add();
  forms::Menu& mnuSetOption = mnuResultOption.Add(forms::Menu::Above::Line);
  forms::Menu& mnuResetTab = mnuResultOption.Add(forms::Menu::Above::Line);
  forms::Menu& mnuSaveAs = mnuResultOption.Add();
  forms::Menu& mnuAbout = mnuResultOption.Add(forms::Menu::Above::Line);

  forms::Menu mnuTabOption;
  forms::Menu& mnuToNewTab = mnuTabOption.Add();
  forms::Menu& mnuToCurTab = mnuTabOption.Add();
  forms::Menu& mnuCloseTab = mnuTabOption.Add(forms::Menu::Above::Line);
  forms::Menu& mnuCloseOtherTabs = mnuTabOption.Add();
  forms::Menu& mnuCloseAllTabs = mnuTabOption.Add();

 private:
  void InitProperties();
  void ListenToMenus();
  void ListenToTabs();
  void On(forms::Menu& item, void (ResultDialog::*handler)());
  std::shared_ptr<IResultPage> ActivePage() const;
  std::u16string SelectedKey() const;

  void mnuResultOption_Click();
  void mnuShowSearchDialog_Click();
  void mnuRefreshResult_Click();
  void mnuCancelSearch_Click();
  void mnuCodePreview_Click();
  void mnuReplacePreview_Click();
  void mnuSetOption_Click();
  void mnuResetTab_Click();
  void mnuSaveAs_Click();
  void mnuAbout_Click();
  void mnuTabOption_Click();
  void mnuToNewTab_Click();
  void mnuToCurTab_Click();
  void mnuCloseTab_Click();
  void mnuCloseOtherTabs_Click();
  void mnuCloseAllTabs_Click();
  void TimerRunTask_Timer();
  void TabMouseDown(std::int16_t button);
  void mobjPageMgr_TabChange();
  void FollowPages(bool any);
  void mobjTask_TaskBegin();
  void mobjTask_TaskDone(std::int32_t taskType);
  void ApplyPreviewMode() const;
  void SearchTo(std::int32_t target);

  forms::Controls controls_;
  WindowHandle hwnd_ = 0;
  std::u16string mstrLastFile;  ///< offered by the next save dialog
  std::shared_ptr<PageManager> mobjPageMgr;
  std::shared_ptr<TaskManager> mobjTask;  ///< of the active page
  std::vector<Subscription> onControls_;
  bool anyPage_ = false;  ///< as of the last TabChange
  Subscription onTabChange_;
  Subscription onTaskBegin_;
  Subscription onTaskDone_;
};

}  // namespace quorvane

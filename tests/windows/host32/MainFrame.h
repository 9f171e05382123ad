#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Event.h"
#include "windows/container/Exporter.h"
#include "windows/host32/CodeWindow.h"
#include "windows/host32/ToolFrame.h"
#include "windows/host32/WindowObject.h"
#include "workbench/model/Workbench.h"

namespace quorvane::container {

/// The container's main window: of class "wndclass_desked_gsk", with the client area "MDIClient" for the code windows,
/// an Add-Ins menu of the workbench's entries, and the tool windows of its add-ins. While a message box or a modal
/// dialog disables it, the entries are disabled, too.
class MainFrame final : public WindowObject {
 public:
  MainFrame(std::shared_ptr<workbench::Workbench> workbench, const std::shared_ptr<Exporter>& exporter);
  ~MainFrame() override;

  HWND Client() const { return client_; }
  workbench::Workbench& TheWorkbench() const { return *workbench_; }
  /// Nothing when no tool window was made or all are gone.
  ToolFrame* TheToolFrame() const { return tools_.empty() ? nullptr : tools_.back().get(); }
  const std::vector<std::unique_ptr<CodeWindow>>& CodeWindows() const { return codes_; }
  /// What a host does with the tool windows of an add-in that goes.
  void CloseToolWindows() { tools_.clear(); }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void MakeClient();
  void FollowPanes();
  void FollowMenu();
  void Layout();
  std::shared_ptr<vbide::Window> MakeToolWindow(const std::u16string& progId, const std::u16string& caption,
                                                com::ComPtr<IUnknown>& document);
  void EnableEntries(bool enabled);

  std::shared_ptr<workbench::Workbench> workbench_;
  std::shared_ptr<Exporter> exporter_;
  HWND client_ = nullptr;
  HMENU entries_ = nullptr;
  std::vector<std::unique_ptr<CodeWindow>> codes_;
  std::vector<std::unique_ptr<ToolFrame>> tools_;
  std::vector<Subscription> followed_;
  std::vector<Subscription> followedEntries_;
};

}  // namespace quorvane::container

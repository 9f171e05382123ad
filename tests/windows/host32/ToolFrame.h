#pragma once

#include <memory>
#include <string>

#include "base/Event.h"
#include "windows/com/ComPtr.h"
#include "windows/host32/ToolSite.h"
#include "windows/host32/WindowObject.h"
#include "workbench/model/HostWindow.h"

namespace quorvane::container {

/// A tool window as the user sees it: floats over the main window or is docked at its foot. The window of the document
/// is destroyed and made anew whenever that changes, as a host does; the document is active only once the tool window
/// was shown.
class ToolFrame final : public WindowObject {
 public:
  /// `document` answers IOleObject. Raises what it answers when it cannot be put in place.
  ToolFrame(HWND main, std::shared_ptr<workbench::HostWindow> model, com::ComPtr<IUnknown> document);
  ~ToolFrame() override;

  bool Docked() const { return docked_; }
  /// Docks or floats. `rude` destroys the window under the document without a word to it.
  void SetDocked(bool docked, bool rude);
  /// The part of the main window's client area that is left beside a docked tool window.
  void TakeRoom(RECT& client);
  const std::shared_ptr<workbench::HostWindow>& TheModel() const { return model_; }

  RECT Place() const;

  Event<> LayoutChanged;  ///< the room beside it has changed

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void MakeWindow();
  void DestroyWindowOf(bool rude);
  void Activate(LONG verb);
  void FollowModel();
  void Close();

  HWND main_;
  std::shared_ptr<workbench::HostWindow> model_;
  com::ComPtr<IOleObject> document_;
  com::ComPtr<ToolSite> site_;
  bool docked_ = false;
  Subscription modelChanged_;
};

}  // namespace quorvane::container

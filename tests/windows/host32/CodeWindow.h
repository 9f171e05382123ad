#pragma once

#include <memory>
#include <string>

#include "base/Event.h"
#include "platform/CodePage.h"
#include "windows/host32/WindowObject.h"
#include "workbench/model/Module.h"
#include "workbench/model/Pane.h"

namespace quorvane::container {

/// A code pane as the user sees it: a "VbaWindow" in the client area with an edit field that fills it. What is typed
/// goes into the module, by lines, and what the module becomes shows in the field; the selections follow each other.
/// Ctrl+Z takes back what the module has last been given. Selected text can be dragged out of it, not into it.
class CodeWindow final : public WindowObject {
 public:
  CodeWindow(HWND client, std::shared_ptr<workbench::Pane> pane, const CodePage& page);
  ~CodeWindow() override;

  const std::shared_ptr<workbench::Pane>& ThePane() const { return pane_; }
  HWND Field() const { return field_; }
  /// Brings the window to the front of the client area.
  void BringForward();
  /// Shows, hides or titles the window as its model says.
  void FollowModel();

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  static LRESULT CALLBACK FieldProcedure(HWND field, UINT message, WPARAM wParam, LPARAM lParam);
  void MakeField();
  void ShowText();
  void ShowSelection();
  void TakeText();
  void TakeSelection();
  std::u16string FieldText() const;

  HWND client_;
  std::shared_ptr<workbench::Pane> pane_;
  std::shared_ptr<workbench::Module> module_;
  const CodePage& page_;
  HWND field_ = nullptr;
  WNDPROC fieldBefore_ = nullptr;
  bool following_ = false;  ///< the field is being set from the model, or the model from the field
  Subscription textChanged_;
  Subscription selectionChanged_;
  Subscription windowChanged_;
  Subscription shown_;
};

}  // namespace quorvane::container

#pragma once

#include <functional>
#include <memory>

#include "base/Event.h"
#include "windows/forms/View.h"
#include "windows/forms/Window.h"

namespace quorvane::windows {

/// The window of a tool window's document, with the document's view inside. It is there before the host has a place for
/// it: hidden under a window of ours, and there again when the host has no place any more.
class DocumentWindow final : public Window {
 public:
  /// `make` gives the view; what that shows outlives this.
  explicit DocumentWindow(const std::function<std::unique_ptr<View>(HWND parent)>& make);
  ~DocumentWindow() override;

  /// Shows it in a window of the host, in pixels of that; of `place` only what lies in `clip` is to be seen.
  void PutInto(HWND parent, const RECT& place, const RECT& clip);
  void MoveTo(const RECT& place, const RECT& clip);
  void Park();

  bool HasFocus() const;
  /// To the control of the view where it belongs, unless it is inside already.
  void TakeFocus();
  /// A key that the host offers. True: it was for the document, and is done with.
  bool TakeKey(const MSG& message);
  /// Paints it as it is, in `place` of the surface.
  void Draw(HDC dc, const RECT& place) const;

  Event<> Entered;  ///< by the mouse, whose press goes to the control under it after this
  Event<> Gone;     ///< someone else has destroyed the window; it does not come back

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  class Parking;

  bool ending_ = false;
  std::unique_ptr<Parking> parking_;
  std::unique_ptr<View> view_;
};

}  // namespace quorvane::windows

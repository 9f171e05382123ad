#pragma once

#include <functional>
#include <optional>

#include "base/Event.h"
#include "windows/forms/Win32.h"

namespace quorvane::forms {
class Menu;
}  // namespace quorvane::forms

namespace quorvane {

namespace windows {

/// Shows a menu when it is popped up: at the mouse, or where PopUpAt says. Returns when the user has chosen, and the
/// choice has been carried out.
class MenuView {
 public:
  /// The menu outlives this. `owner` gives the window that the menu belongs to at that moment.
  MenuView(forms::Menu& menu, std::function<HWND()> owner);
  MenuView(const MenuView&) = delete;
  MenuView& operator=(const MenuView&) = delete;

  /// Pops the model up with its window there, in pixels of the screen; for a menu that is asked for by key.
  void PopUpAt(POINT place);

 private:
  void Show();

  forms::Menu& menu_;
  std::function<HWND()> owner_;
  std::optional<POINT> place_;
  Subscription popped_;
};

}  // namespace windows
}  // namespace quorvane

#include "windows/controls/MenuView.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/forms/Menu.h"
#include "windows/forms/WideText.h"

namespace quorvane::windows {

namespace {

/// The system's menu and what its commands stand for; a command is the place in the list, 1-based.
class Shown {
 public:
  explicit Shown(const forms::Menu& menu) : handle_(Make(menu)) {}
  ~Shown() { DestroyMenu(handle_); }
  Shown(const Shown&) = delete;
  Shown& operator=(const Shown&) = delete;

  /// Nothing when the user chose none.
  std::shared_ptr<forms::Menu> Ask(HWND owner, POINT place) const {
    if (GetWindowThreadProcessId(GetForegroundWindow(), nullptr) != GetCurrentThreadId()) SetForegroundWindow(owner);
    const BOOL command =
        TrackPopupMenuEx(handle_, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, place.x, place.y, owner, nullptr);
    ::PostMessageW(owner, WM_NULL, 0, 0);  // else the next menu might go at once
    return command > 0 ? items_.at(static_cast<std::size_t>(command) - 1) : nullptr;
  }

 private:
  HMENU Make(const forms::Menu& menu) {
    const HMENU made = CreatePopupMenu();
    for (const auto& item : menu.Items()) Add(made, item);
    return made;
  }

  void Add(HMENU menu, const std::shared_ptr<forms::Menu>& item) {
    if (!item->Visible()) return;
    UINT flags = item->IsSeparator() ? MF_SEPARATOR : MF_STRING;
    if (!item->Enabled()) flags |= MF_GRAYED;
    if (item->Checked()) flags |= MF_CHECKED;
    UINT_PTR id = 0;
    if (!item->Items().empty()) {
      flags |= MF_POPUP;
      id = reinterpret_cast<UINT_PTR>(Make(*item));
    } else if (!item->IsSeparator()) {
      items_.push_back(item);
      id = items_.size();
    }
    AppendMenuW(menu, flags, id, Wide(CaptionOf(*item)));
  }

  /// Some captions come with a line break at their end.
  static std::u16string CaptionOf(const forms::Menu& item) {
    std::u16string caption = item.Caption();
    while (!caption.empty() && (caption.back() == u'\n' || caption.back() == u'\r')) caption.pop_back();
    return caption;
  }

  std::vector<std::shared_ptr<forms::Menu>> items_;
  HMENU handle_;
};

}  // namespace

MenuView::MenuView(forms::Menu& menu, std::function<HWND()> owner)
    : menu_(menu), owner_(std::move(owner)), popped_(menu.Popped.Subscribe([this] { Show(); })) {}

void MenuView::PopUpAt(POINT place) {
  place_ = place;
  menu_.PopUp();
  place_.reset();
}

void MenuView::Show() {
  POINT place{};
  GetCursorPos(&place);
  place = place_.value_or(place);
  place_.reset();
  // This may be gone when the user has chosen.
  const auto chosen = Shown(menu_).Ask(owner_(), place);
  if (chosen) chosen->Press();
}

}  // namespace quorvane::windows

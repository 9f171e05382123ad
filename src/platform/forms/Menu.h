#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Event.h"
#include "platform/forms/Control.h"

namespace quorvane::forms {

/// A menu, an item of one or a separator line: a tree, each menu owning its items. "&" in a caption marks the key.
///
/// The user's side: a view that shows a menu subscribes to its Popped, calls Press on an item with items when that
/// opens and on one without when the user chooses it.
class Menu final : public Control {
 public:
  enum class Above { Nothing, Line };

  Menu() = default;

  /// A new item at the end, after a separator line of its own when `above` is Line. It lives as long as this menu.
  Menu& Add(Above above = Above::Nothing);
  /// Lines included, from top to bottom.
  const std::vector<std::shared_ptr<Menu>>& Items() const { return items_; }
  bool IsSeparator() const { return separator_; }

  const std::u16string& Caption() const { return caption_; }
  void SetCaption(const std::u16string& caption);
  bool Checked() const { return checked_; }
  void SetChecked(bool checked);

  /// Raises Click unless this is a line, not enabled or not visible.
  void Press();
  /// Raises Click, so that the items can be set for the moment, then Popped.
  void PopUp();

  Event<> Click;   ///< of a menu with items: it is about to open
  Event<> Popped;  ///< to be shown at the mouse now; the view may return before the user has chosen

 private:
  std::vector<std::shared_ptr<Menu>> items_;
  std::u16string caption_;
  bool separator_ = false;
  bool checked_ = false;
};

}  // namespace quorvane::forms

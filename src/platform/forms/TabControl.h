#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/Event.h"
#include "platform/forms/Control.h"

namespace quorvane::forms {

class ImageList;
class Tab;

/// A bar of tabs, each with a panel below the bar. While there are tabs one of them is selected, and its panel alone is
/// visible. Keys are compared without regard to the case of ASCII letters.
///
/// The gestures are the user's side: a view calls them, and a bar that is not enabled ignores them.
class TabControl final : public Control {
 public:
  /// A key, or a 1-based position.
  using Index = std::variant<std::u16string, std::int32_t>;

  TabControl();
  ~TabControl() override;

  /// A new tab before the one of key `insertBefore`, at the end when that is empty. The first tab of all becomes the
  /// selected one. Error 457 for a key that is there, 5 when `insertBefore` is not.
  std::shared_ptr<Tab> Add(const std::u16string& key, std::u16string_view insertBefore, const std::u16string& caption,
                           std::int32_t iconIndex);
  /// Error 5 for a key that is not there, 9 for a position outside the bar; so does Remove.
  std::shared_ptr<Tab> Item(const Index& index) const;
  /// Takes the tab off the bar. When it was selected, the tab that comes to its place becomes so, else the last one.
  void Remove(const Index& index);
  std::int32_t Count() const { return static_cast<std::int32_t>(tabs_.size()); }
  const std::vector<std::shared_ptr<Tab>>& Tabs() const { return tabs_; }

  /// Null when there is no tab.
  const std::shared_ptr<Tab>& SelectedTab() const { return selected_; }

  const std::shared_ptr<ImageList>& Images() const { return images_; }
  void SetImages(std::shared_ptr<ImageList> images);

  /// A mouse button goes down on a tab; the left one selects it first. Coordinates as the view has them.
  void PressTab(const std::shared_ptr<Tab>& tab, std::int16_t button, std::int16_t shift, float x, float y);
  void DoubleClickTab(const std::shared_ptr<Tab>& tab);
  /// The close button of a tab that can be closed: raises TabClose, then removes the tab unless that cancelled it.
  void PressClose(const std::shared_ptr<Tab>& tab);
  /// A mouse button goes down on the bar beside the tabs.
  void PressBar(std::int16_t button, std::int16_t shift, float x, float y);

  using TabEvent = Event<const std::shared_ptr<Tab>&>;
  TabEvent TabSelected;  ///< another tab than before
  Event<const std::shared_ptr<Tab>&, std::int16_t, std::int16_t, float, float> TabMouseDown;  ///< Button, Shift, x, y
  TabEvent TabDoubleClick;
  Event<const std::shared_ptr<Tab>&, bool&> TabClose;  ///< cancel
  Event<std::int16_t, std::int16_t, float, float> BarMouseDown;

 private:
  friend class Tab;
  void Select(Tab& tab);
  void SelectAt(std::size_t position);
  bool Takes(const std::shared_ptr<Tab>& tab) const;
  std::size_t Position(const Index& index) const;
  std::size_t PositionOfKey(std::u16string_view key) const;

  std::vector<std::shared_ptr<Tab>> tabs_;
  std::shared_ptr<Tab> selected_;  ///< invariant: one of tabs_, null only when there is none
  std::shared_ptr<ImageList> images_;
};

}  // namespace quorvane::forms

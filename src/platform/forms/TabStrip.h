#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/forms/Control.h"

namespace quorvane::forms {

/// A fixed number of tabs over one place, each with a panel that holds its controls. Tabs count from 0; the first one
/// is shown at the start. The panel of the shown tab alone is visible.
class TabStrip final : public Control {
 public:
  explicit TabStrip(std::int16_t tabs);

  std::int16_t Tabs() const { return static_cast<std::int16_t>(tabs_.size()); }
  /// Error 380 for a tab that is not there, as with the others below.
  const std::u16string& TabCaption(std::int16_t tab) const { return At(tab).caption; }
  void SetTabCaption(std::int16_t tab, const std::u16string& caption);
  /// The container of the tab's controls.
  const std::shared_ptr<Control>& Panel(std::int16_t tab) const { return At(tab).panel; }

  std::int16_t Tab() const { return tab_; }  ///< the shown one
  /// Raises Click when it is another one.
  void SetTab(std::int16_t tab);

  /// The user's side; tabs that are disabled or invisible ignore it.
  void Pick(std::int16_t tab);

  Event<std::int16_t> Click;  ///< PreviousTab

 private:
  struct Page {
    std::u16string caption;
    std::shared_ptr<Control> panel;
  };
  const Page& At(std::int16_t tab) const;

  std::vector<Page> tabs_;
  std::int16_t tab_ = 0;
};

}  // namespace quorvane::forms

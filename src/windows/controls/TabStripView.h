#pragma once

#include <memory>
#include <string>
#include <vector>

#include "windows/controls/ControlView.h"

namespace quorvane::forms {
class TabStrip;
}  // namespace quorvane::forms

namespace quorvane {}

namespace quorvane::windows {

/// Tabs over one place, each with a page: a window in which its controls lie. The page of the shown tab alone is seen.
class TabStripView final : public ControlView {
 public:
  TabStripView(DialogView& dialog, const std::shared_ptr<forms::TabStrip>& strip, HWND parent);
  ~TabStripView() override;

  /// The window of a tab, 0-based, for the controls in it.
  HWND Page(std::int16_t tab) const;
  /// What lies in that page.
  void SetLayout(std::int16_t tab, std::unique_ptr<Placeable> inside);
  /// As in every dialog with tabs: Ctrl+Tab and Ctrl+PgDn lead to the next tab, with Shift or PgUp to the one before,
  /// from wherever the focus is; after the last comes the first. False for any other key.
  bool TakeKey(const MSG& message);

  SIZE Least() const override;
  void Place(const RECT& room) override;

 protected:
  void Show() override;
  SIZE Measure() const override { return {}; }
  bool OnReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

 private:
  class PageWindow;

  const std::shared_ptr<forms::TabStrip> strip_;
  std::vector<std::u16string> captions_;
  std::vector<std::unique_ptr<PageWindow>> pages_;
  std::vector<std::unique_ptr<Placeable>> layouts_;  ///< one a page, nothing for an empty one
};

}  // namespace quorvane::windows

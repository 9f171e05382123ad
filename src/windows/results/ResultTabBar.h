#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Event.h"
#include "windows/controls/Soon.h"
#include "windows/forms/Window.h"

namespace quorvane::forms {
class Tab;
class TabControl;
}  // namespace quorvane::forms

namespace quorvane::windows {

/// The bar of a tab control, with the system's own tabs: each with a cross to close it and a tool tip, after them the
/// one with a plus. What the user does goes to the control, and the bar shows what came of it: it selects nothing by
/// itself.
class ResultTabBar final : public Window {
 public:
  /// The control outlives this.
  ResultTabBar(forms::TabControl& control, HWND parent);
  ~ResultTabBar() override;

  /// The height that the tabs take, in pixels.
  int WantedHeight() const;
  /// Where a tab is, in pixels of the bar; empty for one that is not there.
  RECT RectOf(const std::shared_ptr<forms::Tab>& tab) const;
  /// The cross of the tab, likewise.
  RECT CrossOf(const std::shared_ptr<forms::Tab>& tab) const;

  Event<> TabPressed;              ///< the key: the focus wants to go on
  Event<std::int16_t> KeyPressed;  ///< any key that is of no use here

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Follow();
  void FollowTab(std::size_t index);
  void OnGone();
  std::shared_ptr<forms::Tab> TabAt(int x, int y) const;
  bool OnMouse(UINT message, LPARAM lParam);
  void OnPress(std::int16_t button, int x, int y);
  void OnRelease(int x, int y);
  void OnDoubleClick(UINT message, int x, int y);
  void OnHover(const std::shared_ptr<forms::Tab>& overCross);
  void OnKey(std::int16_t key);
  void SelectBeside(int step);
  bool AnswerTip(LPARAM lParam);
  std::u16string Shortened(std::u16string text) const;
  void DrawSigns(HDC dc) const;
  void DrawSign(HDC dc, const std::shared_ptr<forms::Tab>& tab) const;

  struct Shown {
    std::shared_ptr<forms::Tab> tab;
    std::u16string text;  ///< as the bar has it
  };

  forms::TabControl& control_;
  std::vector<Shown> shown_;           ///< as they stand on this bar
  std::weak_ptr<forms::Tab> pressed_;  ///< by the last press of the left button
  std::weak_ptr<forms::Tab> pressedCross_;
  std::weak_ptr<forms::Tab> hotCross_;  ///< under the mouse
  std::u16string tip_;                  ///< what the tool tip was given last
  Soon follow_;
  Subscription changed_;
};

}  // namespace quorvane::windows

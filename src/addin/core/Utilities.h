#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "addin/core/Counted.h"
#include "platform/NativeWindows.h"

namespace quorvane::forms {
class OptionGroup;
}  // namespace quorvane::forms

namespace quorvane {

namespace vbide {
class VBComponent;
class VBE;
class VBProject;
class Window;
}  // namespace vbide

/// Stateless operations around windows, components and texts.
class Utilities : private Counted<Utilities> {
 public:
  static constexpr std::string_view ClassName = "Utilities";

  void ShowWindowAsync(WindowHandle hwnd, std::int32_t nCmdShow) const;
  /// Neither moves nor sizes nor activates the window.
  void SetZOrder(WindowHandle hwnd, WindowHandle hWndInsertAfter) const;
  /// Any value but 0 shows the window without activating it.
  void SetWindowVisible(WindowHandle hwnd, std::int32_t bVisible) const;
  WindowHandle GetTopWindow(WindowHandle hwnd) const;
  WindowHandle FindWindow(std::u16string_view className, std::u16string_view windowName) const;
  WindowHandle FindWindowEx(WindowHandle parent, std::u16string_view className, std::u16string_view windowName) const;
  WindowHandle GetParent(WindowHandle hwnd) const;
  WindowHandle GetForegroundWindow() const;
  /// The title, as far as 254 bytes of the ANSI code page hold it; a character that the page lacks is a question mark.
  std::u16string GetWindowText(WindowHandle hwnd) const;

  /// The mouse on the screen, in pixels.
  std::int32_t MouseX() const;
  std::int32_t MouseY() const;
  /// True strictly inside the window; its edges are outside.
  bool IsPointInWindow(WindowHandle hwnd, std::int32_t x, std::int32_t y) const;

  /// For each character its 1-based place and its ANSI code: "[1,65] [2,66] ".
  std::u16string GetStrAsc(std::u16string_view s) const;

  /// Whether `hChild` is `hParentToTest` or lies in it, at any depth.
  bool IsParentWindow(WindowHandle hParentToTest, WindowHandle hChild) const;
  void SetParent(WindowHandle hWndChild, WindowHandle hWndNewParent) const;
  /// The row of a list under a point of its client area in pixels, rounded half to even; a value above 65535 for a
  /// point outside all rows. Error 6 for coordinates that a message cannot carry.
  std::int32_t GetListIndex(WindowHandle hwnd, double x, double y) const;

  /// The host's main window; 0 when anything fails.
  WindowHandle VBHandle(vbide::VBE& vbInstance) const;

  /// Whether a component has code to search.
  bool IsNormalComp(const vbide::VBComponent& comp) const;
  /// Number of components with code to search.
  std::int16_t GetModuleCount(const vbide::VBProject& project) const;

  /// Among equals, the first.
  template <class T>
  static T Min(std::initializer_list<T> args) {
    return *std::min_element(args.begin(), args.end());
  }
  /// Among equals, the first.
  template <class T>
  static T Max(std::initializer_list<T> args) {
    return *std::max_element(args.begin(), args.end());
  }

  /// The lowest index whose option is set, or 0 when there is none.
  std::int16_t GetOptionIndex(const forms::OptionGroup& ctrl) const;

  /// Expands the escapes of a replacement text: \t \r \n \\; any other escape and a single backslash at the end vanish.
  std::u16string ReplaceSpecialChar(std::u16string_view src) const;
  /// The escapes that vanish so, each with its backslash, in their order.
  std::vector<std::u16string> VanishingEscapes(std::u16string_view src) const;

  /// Brings the code window of `w` to the front of the host's client area.
  void ActivateCodeWindow(const vbide::Window& w) const;
  WindowHandle GetCodeWindowHandle(const vbide::Window& w) const;
  WindowHandle GetMDIClientWindowHandle() const;
};

}  // namespace quorvane

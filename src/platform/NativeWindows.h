#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

using WindowHandle = std::int32_t;  ///< 0: no window

/// In screen pixels.
struct ScreenPoint {
  std::int32_t X = 0;
  std::int32_t Y = 0;

  bool operator==(const ScreenPoint&) const = default;
};

/// In screen pixels; right and bottom lie one after the last pixel.
struct ScreenRect {
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Right = 0;
  std::int32_t Bottom = 0;

  bool operator==(const ScreenRect&) const = default;
};

/// Commands of ShowWindow. Any other shows.
enum ShowCommand : std::int32_t { kHideWindow = 0, kShowNoActivate = 4 };

/// Flags of SetWindowPos, to be added: what stays as it is.
enum WindowPosFlag : std::uint32_t { kNoSize = 1, kNoMove = 2, kNoZOrder = 4, kNoActivation = 16 };

/// Places for SetWindowPos in the order of windows; any other value is the window to stand after.
enum ZOrder : WindowHandle {
  kTopWindow = 0,
  kBottomWindow = 1,
  kTopmostWindow = -1,     ///< above all that are not so
  kNotTopmostWindow = -2,  ///< no longer so
};

/// Colours of GetSysColor.
enum SystemColor : std::int32_t {
  kWindowColor = 5,
  kWindowTextColor = 8,
  kHighlightColor = 13,
  kHighlightTextColor = 14,
};

/// Messages that the add-in sends.
enum WindowMessage : std::uint32_t {
  kItemFromPoint = 425,        ///< to a list: which row lies at a point
  kActivateCodeView = 0x1043,  ///< to a code window: bring the view to the front of the client area
};

/// The window system's own calls. Texts are titles and class names as the window system knows them; commands, flags and
/// messages have its values. A handle of no window makes a call do nothing and give 0. A call that the platform does
/// not offer raises error 445 with its name.
class NativeWindows {
 public:
  virtual ~NativeWindows() = default;

  /// The first top-level window of that class and title, 0 when there is none.
  virtual WindowHandle FindWindow(std::u16string_view className, std::u16string_view windowName) = 0;
  /// The first child of `parent` of that class and title, 0 when there is none.
  virtual WindowHandle FindWindowEx(WindowHandle parent, std::u16string_view className,
                                    std::u16string_view windowName) = 0;
  /// 0 as handle does nothing.
  virtual std::int32_t SendMessage(WindowHandle window, std::uint32_t message, std::int32_t wParam,
                                   std::int32_t lParam) = 0;

  /// `command` is a ShowCommand.
  virtual void ShowWindow(WindowHandle window, std::int32_t command);
  /// As ShowWindow, without waiting for the window.
  virtual void ShowWindowAsync(WindowHandle window, std::int32_t command);
  /// `insertAfter` is a window or a ZOrder; `flags` is a sum of WindowPosFlag.
  virtual void SetWindowPos(WindowHandle window, WindowHandle insertAfter, std::int32_t x, std::int32_t y,
                            std::int32_t width, std::int32_t height, std::uint32_t flags);
  /// The frontmost child, of the desktop with 0.
  virtual WindowHandle GetTopWindow(WindowHandle window);
  virtual WindowHandle GetParent(WindowHandle window);
  virtual void SetParent(WindowHandle child, WindowHandle newParent);
  virtual WindowHandle GetForegroundWindow();
  /// The whole title.
  virtual std::u16string GetWindowText(WindowHandle window);
  virtual ScreenPoint GetCursorPos();
  /// No value for no window.
  virtual std::optional<ScreenRect> GetWindowRect(WindowHandle window);

  /// Colour of the screen, 0x00BBGGRR, by a SystemColor. A platform without colours of its own gives the classic ones,
  /// black for an index without one.
  virtual std::uint32_t GetSysColor(std::int32_t index);
};

}  // namespace quorvane

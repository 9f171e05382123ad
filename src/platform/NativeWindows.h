#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

using WindowHandle = std::int32_t;  ///< 0: no window

/// The window system's own calls. Texts are titles and class names as the window system knows them.
class NativeWindows {
 public:
  virtual ~NativeWindows() = default;

  /// The first top-level window of that class and title, 0 when there is none.
  virtual WindowHandle FindWindow(std::u16string_view className, std::u16string_view windowName) = 0;
  /// The first child of `parent` of that class and title, 0 when there is none.
  virtual WindowHandle FindWindowEx(WindowHandle parent, std::u16string_view className,
                                    std::u16string_view windowName) = 0;
  /// Message 0x1043 to a code window brings its view to the front of the client area. 0 as handle does nothing.
  virtual std::int32_t SendMessage(WindowHandle window, std::uint32_t message, std::int32_t wParam,
                                   std::int32_t lParam) = 0;
};

}  // namespace quorvane

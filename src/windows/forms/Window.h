#pragma once

#include <memory>
#include <string>

#include "windows/com/Win32.h"

namespace quorvane::windows {

/// A window of ours: one of a class of our own, or a standard control whose messages come here first. It goes with this
/// object; when the window system or the host destroys it earlier, Handle() becomes null and the object stays.
///
/// No exception passes the window procedure: it is shown as at the top of an event. A message may end the life of other
/// windows, but not of this object or of those around it, while their procedures stand: such are given to Bury.
class Window {
 public:
  Window() = default;
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  HWND Handle() const { return handle_; }
  std::u16string Text() const;
  void SetText(const std::u16string& text);

  /// The object of a window; nothing for windows of others.
  static Window* Of(HWND handle);
  /// Deletes `doomed`, at once or, while entries stand, after the outermost of them; its window is hidden until then.
  static void Bury(std::unique_ptr<Window> doomed);
  /// Takes the window classes out, which have to go before the program's file does. No window of them is left.
  static void ForgetClasses();

 protected:
  struct Making {
    /// A standard control such as L"BUTTON"; nothing for a window of our own.
    const wchar_t* control = nullptr;
    std::u16string text;
    DWORD style = 0;  ///< WS_… and the control's own
    DWORD extendedStyle = 0;
    HWND parent = nullptr;   ///< of a child the parent, else the owner
    RECT place{0, 0, 0, 0};  ///< pixels, in the parent's client area or on the screen
    int id = 0;              ///< of a child
    UINT classStyle = 0;     ///< CS_… of a window of our own, such as CS_DBLCLKS
  };
  /// Raises when the window cannot be made. A window made before is destroyed first.
  void Create(const Making& making);
  void Destroy();

  /// One message. What is not handled goes to Default.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  /// A message that one of our controls sends to its parent comes to the control itself first: WM_COMMAND, WM_NOTIFY,
  /// WM_DRAWITEM, WM_MEASUREITEM, WM_HSCROLL, WM_VSCROLL and WM_CTLCOLOR…. True when it is done with.
  virtual bool OnReflected(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
  /// What the window system or the control does with a message.
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) const;

 private:
  static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
  static const wchar_t* ClassFor(UINT classStyle);
  LRESULT Take(UINT message, WPARAM wParam, LPARAM lParam);

  HWND handle_ = nullptr;
  WNDPROC own_ = nullptr;  ///< of a standard control its procedure
};

/// The program's file, for resources and window classes.
HINSTANCE Instance();

/// Raises an error with what a call named `what` failed with last, by the window system's number and words.
[[noreturn]] void RaiseLastError(const char16_t* what);

}  // namespace quorvane::windows

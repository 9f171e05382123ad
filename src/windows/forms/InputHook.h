#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "base/Event.h"
#include "windows/com/Win32.h"

namespace quorvane::windows {

/// Takes the keys of one of our windows before its controls do.
class KeyTarget {
 public:
  virtual ~KeyTarget() = default;

  /// A WM_KEYDOWN, WM_SYSKEYDOWN, WM_CHAR or WM_SYSCHAR for the window or one inside it. False: it goes its usual way.
  /// Comes out of the message loop, not out of the hook, so that anything may be done here.
  virtual bool TakeKey(const MSG& message) = 0;
};

/// Sees what the message loop of this thread takes out of its queue, whoever runs that loop: the host's own knows
/// nothing of our dialogs and hotkeys. It acts on a message that is being removed, never on one that is only looked at,
/// and never while a menu is open. A key of ours is turned into nothing for whoever runs the loop and comes back by a
/// message to a hidden window, from which it is carried out.
class InputHook {
 public:
  /// Whether a chord (virtual key, sum of 1 Shift, 2 Ctrl, 4 Alt) is a command of ours now; and the command itself.
  struct Hotkeys {
    std::function<bool(std::int32_t key, std::int32_t modifier)> takes;
    std::function<void(std::int32_t key, std::int32_t modifier)> run;
  };

  /// Puts the hook in force for this thread, one at a time.
  InputHook();
  /// Takes it out.
  ~InputHook();
  InputHook(const InputHook&) = delete;
  InputHook& operator=(const InputHook&) = delete;

  static InputHook& The();  ///< error 91 when there is none

  /// Keys for `window` and what lies in it go to `target` first, until Remove. The innermost such window counts.
  void Add(HWND window, KeyTarget& target);
  void Remove(HWND window);

  void SetHotkeys(Hotkeys hotkeys) { hotkeys_ = std::move(hotkeys); }
  /// The window without which no hotkey works: while it is disabled or invisible. Null: any goes.
  void SetHostWindow(HWND window) { host_ = window; }

  /// Each message that a loop removes from the queue, ours included, before anyone handles it; from inside the hook, so
  /// that a handler only takes note.
  Event<const MSG&> Removed;

  /// Sum of 1 Shift, 2 Ctrl, 4 Alt, as they were held when the message of the moment came.
  static std::int32_t HeldModifiers();

 private:
  class Receiver;

  static LRESULT CALLBACK Procedure(int code, WPARAM wParam, LPARAM lParam);
  void Look(MSG& message);
  bool TakeHotkey(const MSG& message);
  bool TakeForTarget(const MSG& message);
  KeyTarget* TargetOf(HWND window) const;

  struct Place {
    HWND window;
    KeyTarget* target;
  };

  HHOOK hook_ = nullptr;
  HWND host_ = nullptr;
  Hotkeys hotkeys_;
  std::vector<Place> places_;
  std::unique_ptr<Receiver> receiver_;
};

}  // namespace quorvane::windows

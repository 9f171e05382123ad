// A key that is ours leaves the queue as WM_NULL and comes back as a posted message. Posted messages are served before
// input, so that the order of keys stays, and the state of the modifiers is still that of the key.
#include "windows/forms/InputHook.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "windows/forms/Entry.h"
#include "windows/forms/Window.h"

namespace quorvane::windows {

namespace {

constexpr UINT kRunHotkey = WM_APP + 1;  // wParam: key, lParam: modifier
constexpr UINT kRunKey = WM_APP + 2;     // the oldest of the keys that wait

InputHook* current = nullptr;

bool IsKey(UINT message) {
  return message == WM_KEYDOWN || message == WM_SYSKEYDOWN || message == WM_CHAR || message == WM_SYSCHAR;
}

bool IsPress(UINT message) {
  return message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
}

bool InMenu() {
  GUITHREADINFO info{};
  info.cbSize = sizeof(info);
  if (!::GetGUIThreadInfo(::GetCurrentThreadId(), &info)) return false;
  return (info.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE)) != 0;
}

}  // namespace

/// The hidden window to which taken keys come back.
class InputHook::Receiver final : public Window {
 public:
  explicit Receiver(InputHook& hook) : hook_(hook) {
    Making making;
    making.parent = HWND_MESSAGE;
    Create(making);
  }

  void PostHotkey(std::int32_t key, std::int32_t modifier) {
    ::PostMessageW(Handle(), kRunHotkey, static_cast<WPARAM>(key), modifier);
  }
  void PostKey(const MSG& message) {
    keys_.push_back(message);
    ::PostMessageW(Handle(), kRunKey, 0, 0);
  }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == kRunHotkey) {
      if (const auto run = hook_.hotkeys_.run)
        run(static_cast<std::int32_t>(wParam), static_cast<std::int32_t>(lParam));
      return 0;
    }
    if (message == kRunKey) {
      RunKey();
      return 0;
    }
    return Default(message, wParam, lParam);
  }

 private:
  void RunKey() {
    if (keys_.empty()) return;
    const MSG key = keys_.front();
    keys_.erase(keys_.begin());
    if (!::IsWindow(key.hwnd)) return;
    KeyTarget* target = hook_.TargetOf(key.hwnd);
    if (target != nullptr && target->TakeKey(key)) return;
    ::TranslateMessage(&key);
    ::DispatchMessageW(&key);
  }

  InputHook& hook_;
  std::vector<MSG> keys_;
};

InputHook::InputHook() {
  if (current != nullptr) RaiseError(ErrorNumber::InvalidProcedureCall);
  receiver_ = std::make_unique<Receiver>(*this);
  hook_ = ::SetWindowsHookExW(WH_GETMESSAGE, &InputHook::Procedure, nullptr, ::GetCurrentThreadId());
  if (hook_ == nullptr) RaiseLastError(u"SetWindowsHookEx");
  current = this;
}

InputHook::~InputHook() {
  current = nullptr;
  ::UnhookWindowsHookEx(hook_);
}

InputHook& InputHook::The() {
  return Deref(current);
}

void InputHook::Add(HWND window, KeyTarget& target) {
  Remove(window);
  places_.push_back({window, &target});
}

void InputHook::Remove(HWND window) {
  std::erase_if(places_, [window](const Place& place) { return place.window == window; });
}

std::int32_t InputHook::HeldModifiers() {
  const auto held = [](int key) { return ::GetKeyState(key) < 0; };
  return (held(VK_SHIFT) ? 1 : 0) + (held(VK_CONTROL) ? 2 : 0) + (held(VK_MENU) ? 4 : 0);
}

KeyTarget* InputHook::TargetOf(HWND window) const {
  for (HWND at = window; at != nullptr; at = ::GetAncestor(at, GA_PARENT)) {
    const auto found = std::ranges::find(places_, at, &Place::window);
    if (found != places_.end()) return found->target;
  }
  return nullptr;
}

/// No key while the host waits for an answer: a message box or a dialog of its own has its main window disabled.
bool InputHook::TakeHotkey(const MSG& message) {
  if (!IsPress(message.message) || !hotkeys_.takes) return false;
  if (host_ != nullptr && (!::IsWindowEnabled(host_) || !::IsWindowVisible(host_))) return false;
  const auto key = static_cast<std::int32_t>(message.wParam);
  const std::int32_t modifier = HeldModifiers();
  if (!hotkeys_.takes(key, modifier)) return false;
  receiver_->PostHotkey(key, modifier);
  return true;
}

bool InputHook::TakeForTarget(const MSG& message) {
  if (TargetOf(message.hwnd) == nullptr) return false;
  receiver_->PostKey(message);
  return true;
}

void InputHook::Look(MSG& message) {
  Removed.Raise(message);
  // Keys on their way through an input method are its own.
  if (!IsKey(message.message) || message.wParam == VK_PROCESSKEY || InMenu()) return;
  if (TakeHotkey(message) || TakeForTarget(message)) message.message = WM_NULL;
}

LRESULT CALLBACK InputHook::Procedure(int code, WPARAM wParam, LPARAM lParam) {
  if (code == HC_ACTION && wParam == PM_REMOVE && current != nullptr) {
    Enter([&] { current->Look(*reinterpret_cast<MSG*>(lParam)); });
  }
  return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace quorvane::windows

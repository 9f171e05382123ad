#include "windows/platform/Win32MessageLoop.h"

#include <algorithm>
#include <deque>
#include <unordered_map>
#include <utility>

#include "windows/forms/Window.h"

namespace quorvane::windows {

namespace {

using namespace std::chrono_literals;

constexpr auto kShortestPause = 10ms;
constexpr auto kLongestPause = 50ms;
constexpr int kPauseByCost = 4;
constexpr UINT kRunPosted = WM_APP + 1;

/// Handles one message that waits. The end of the program is left for the loop around.
enum class Turn { Nothing, Handled, Quit };
Turn HandleOne() {
  MSG message;
  if (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) return Turn::Nothing;
  if (message.message == WM_QUIT) {
    ::PostQuitMessage(static_cast<int>(message.wParam));
    return Turn::Quit;
  }
  ::TranslateMessage(&message);
  ::DispatchMessageW(&message);
  return Turn::Handled;
}

}  // namespace

/// The hidden window whose timers and messages these are.
class Win32MessageLoop::Receiver final : public windows::Window {
 public:
  Receiver() {
    Making making;
    making.parent = HWND_MESSAGE;
    Create(making);
  }

  TimerId Start(std::int32_t milliseconds, std::function<void()> tick) {
    const TimerId timer = ++lastTimer_;
    if (::SetTimer(Handle(), timer, static_cast<UINT>(milliseconds), nullptr) == 0) RaiseLastError(u"SetTimer");
    ticks_[timer] = std::make_shared<std::function<void()>>(std::move(tick));
    return timer;
  }
  void Stop(TimerId timer) {
    if (ticks_.erase(timer) > 0) ::KillTimer(Handle(), timer);
  }
  void Post(std::function<void()> action) {
    posted_.push_back(std::move(action));
    ::PostMessageW(Handle(), kRunPosted, 0, 0);
  }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message == WM_TIMER) {
      Tick(static_cast<TimerId>(wParam));
      return 0;
    }
    if (message == kRunPosted) {
      RunPosted();
      return 0;
    }
    return Default(message, wParam, lParam);
  }

 private:
  /// A tick may stop its own timer.
  void Tick(TimerId timer) {
    const auto found = ticks_.find(timer);
    if (found == ticks_.end()) return;
    const auto tick = found->second;
    (*tick)();
  }
  void RunPosted() {
    if (posted_.empty()) return;
    const auto action = std::move(posted_.front());
    posted_.pop_front();
    action();
  }

  std::unordered_map<TimerId, std::shared_ptr<std::function<void()>>> ticks_;
  std::deque<std::function<void()>> posted_;
  TimerId lastTimer_ = 0;
};

Win32MessageLoop::Win32MessageLoop() : receiver_(std::make_unique<Receiver>()) {}

Win32MessageLoop::~Win32MessageLoop() = default;

void Win32MessageLoop::DoEvents() {
  const Clock::time_point begin = Clock::now();
  if (begin < nextYield_) return;
  while (HandleOne() == Turn::Handled) {
    if (Clock::now() - begin > kLongestPause) break;  // a window that never has enough must not hold the task
  }
  const Clock::time_point end = Clock::now();
  nextYield_ = end + std::clamp<Clock::duration>((end - begin) * kPauseByCost, kShortestPause, kLongestPause);
}

void Win32MessageLoop::WaitWhile(const std::function<bool()>& waiting) {
  while (waiting()) {
    const Turn turn = HandleOne();
    if (turn == Turn::Quit) return;
    if (turn == Turn::Nothing) ::WaitMessage();
  }
}

MessageLoop::TimerId Win32MessageLoop::StartTimer(std::int32_t milliseconds, std::function<void()> tick) {
  return receiver_->Start(milliseconds, std::move(tick));
}

void Win32MessageLoop::StopTimer(TimerId timer) {
  receiver_->Stop(timer);
}

void Win32MessageLoop::Post(std::function<void()> action) {
  receiver_->Post(std::move(action));
}

HWND Win32MessageLoop::Window() const {
  return receiver_->Handle();
}

}  // namespace quorvane::windows

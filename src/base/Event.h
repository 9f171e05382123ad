#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quorvane {

namespace event_detail {

struct Slot {
  virtual ~Slot() = default;
  bool connected = true;
};

}  // namespace event_detail

/// Owns one handler's place in an Event: the handler is called until this is destroyed or reset. It may outlive the
/// event and may end during a raise of it.
class [[nodiscard]] Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::shared_ptr<event_detail::Slot> slot) : slot_(std::move(slot)) {}
  Subscription(Subscription&&) noexcept = default;
  Subscription& operator=(Subscription&& other) noexcept {
    Reset();
    slot_ = std::move(other.slot_);
    return *this;
  }
  ~Subscription() { Reset(); }

  void Reset() {
    if (slot_) slot_->connected = false;
    slot_.reset();
  }

 private:
  std::shared_ptr<event_detail::Slot> slot_;
};

/// A synchronous callback list. Handlers run in the order of subscribing; during a raise handlers may be added (they
/// wait for the next raise), end, or destroy the event itself. A by-reference argument stays by reference. An error of
/// a handler ends the raise and reaches the raiser.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  Event() : state_(std::make_shared<State>()) {}
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  Subscription Subscribe(Handler handler) {
    auto slot = std::make_shared<HandlerSlot>();
    slot->handler = std::move(handler);
    state_->slots.push_back(slot);
    return Subscription(slot);
  }

  void Raise(Args... args) const {
    if (state_->slots.empty()) return;
    const std::shared_ptr<State> state = state_;  // a handler may destroy the event
    const RaiseScope scope(*state);
    const std::size_t count = state->slots.size();
    for (std::size_t i = 0; i < count; ++i) {
      const std::shared_ptr<HandlerSlot> slot = state->slots[i];
      if (slot->connected) slot->handler(args...);
    }
  }

 private:
  struct HandlerSlot : event_detail::Slot {
    Handler handler;
  };
  struct State {
    std::vector<std::shared_ptr<HandlerSlot>> slots;
    int raising = 0;  ///< raises under way; slots are removed only when there is none
  };
  struct RaiseScope {
    explicit RaiseScope(State& s) : state(s) { ++state.raising; }
    ~RaiseScope() {
      if (--state.raising == 0) std::erase_if(state.slots, [](const auto& slot) { return !slot->connected; });
    }
    State& state;
  };

  std::shared_ptr<State> state_;
};

}  // namespace quorvane

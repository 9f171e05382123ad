#pragma once

#include <functional>
#include <string>

#include "windows/com/ComPtr.h"

namespace quorvane::com {

class DispatchCall;
class EventSink;

/// Listens to one event of an object of another program, from its making to its end. The interface by which the object
/// calls comes from its connection point, and the event's id from the type information of object or interface; a source
/// that has neither calls its only event by 1.
class EventConnection {
 public:
  using Handler = std::function<void(DispatchCall&)>;

  /// Raises what the source answers when it does not take listeners. `handler` may end this; what it raises reaches the
  /// source.
  EventConnection(const ComPtr<IUnknown>& source, const std::u16string& event, Handler handler);
  ~EventConnection();
  EventConnection(const EventConnection&) = delete;
  EventConnection& operator=(const EventConnection&) = delete;

 private:
  ComPtr<IConnectionPoint> point_;
  ComPtr<EventSink> sink_;
  DWORD cookie_ = 0;
};

}  // namespace quorvane::com

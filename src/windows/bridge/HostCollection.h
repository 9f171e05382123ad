#pragma once

#include <cstdint>

#include "windows/com/LateBound.h"

namespace quorvane::bridge {

/// A collection of the host's: Count and Item, counted from 1.
class HostCollection {
 public:
  explicit HostCollection(com::LateBound collection) : collection_(std::move(collection)) {}

  std::int32_t Count() const { return collection_.Call(u"Count").ToInt32(); }
  com::ComPtr<IDispatch> Item(std::int32_t index) const { return collection_.Call(u"Item", index).ToObject(); }

 private:
  com::LateBound collection_;
};

}  // namespace quorvane::bridge

#pragma once

#include <string_view>

namespace quorvane::chordtrap {

/// An object whose operations are called by name, without arguments.
class ICommandTarget {
 public:
  virtual ~ICommandTarget() = default;

  virtual void Invoke(std::u16string_view name) = 0;
};

}  // namespace quorvane::chordtrap

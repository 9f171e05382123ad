#pragma once

#include <string_view>

#include "addin/core/Counted.h"
#include "base/Error.h"

namespace quorvane {

/// Carries one error across clean-up code.
class ErrBuffer : private Counted<ErrBuffer> {
 public:
  static constexpr std::string_view ClassName = "ErrBuffer";

  /// Copies the error that is being handled; to be called in a catch clause.
  void Save();
  /// Raises what was saved.
  [[noreturn]] void Raise() const;

 private:
  Error saved_;
};

}  // namespace quorvane

#pragma once

#include <string_view>

#include "base/Error.h"

namespace quorvane {

/// Carries one error across clean-up code.
class ErrBuffer {
 public:
  static constexpr std::string_view ClassName = "ErrBuffer";

  ErrBuffer();
  ~ErrBuffer();
  ErrBuffer(const ErrBuffer&) = delete;
  ErrBuffer& operator=(const ErrBuffer&) = delete;

  /// Copies the error that is being handled; to be called in a catch clause.
  void Save();
  /// Raises what was saved.
  [[noreturn]] void Raise() const;

 private:
  Error saved_;
};

}  // namespace quorvane

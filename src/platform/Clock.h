#pragma once

#include "base/DateTime.h"

namespace quorvane {

/// The user's time and way to write it.
class Clock {
 public:
  virtual ~Clock() = default;

  virtual DateTime Now() = 0;
  virtual DateFormat Format() = 0;
};

}  // namespace quorvane

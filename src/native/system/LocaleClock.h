#pragma once

#include <string_view>

#include "platform/Clock.h"

namespace quorvane::native {

/// The system's clock in the user's time zone, and the order and separator of the user's locale.
class LocaleClock final : public Clock {
 public:
  DateTime Now() override;
  DateFormat Format() override;

  /// What the locale's own date pattern, such as "%d.%m.%Y", amounts to.
  static DateFormat FormatOf(std::string_view pattern);
};

}  // namespace quorvane::native

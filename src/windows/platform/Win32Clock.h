#pragma once

#include <string_view>

#include "platform/Clock.h"

namespace quorvane::windows {

/// The system's clock in the user's time zone, and the order and separator of the user's short date.
class Win32Clock final : public Clock {
 public:
  DateTime Now() override;
  DateFormat Format() override;

  /// What a short date such as "dd.MM.yyyy" amounts to.
  static DateFormat FormatOf(std::u16string_view pattern);
};

}  // namespace quorvane::windows

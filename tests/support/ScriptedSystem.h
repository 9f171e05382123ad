#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/Clock.h"
#include "platform/ExceptionFilter.h"
#include "platform/Shell.h"

namespace quorvane::test {

/// Time stands still where a test puts it.
class FakeClock final : public Clock {
 public:
  DateTime Now() override { return Moment; }
  DateFormat Format() override { return Written; }

  DateTime Moment = DateTime::Of(2024, 5, 15, 10, 30, 0);
  DateFormat Written{DateOrder::DayMonthYear, u'.'};
};

class RecordingShell final : public Shell {
 public:
  void OpenAddress(const std::u16string& address) override { Opened.push_back(address); }

  std::vector<std::u16string> Opened;
};

/// Faults that a test makes up, with the answers to their boxes.
class ScriptedFaults final : public ExceptionFilter {
 public:
  UnhandledExceptionFilter SetUnhandledExceptionFilter(UnhandledExceptionFilter filter) override {
    return std::exchange(Filter, filter);
  }
  int FaultBox(std::u16string_view text, int flags, std::u16string_view caption) noexcept override {
    Shown = std::u16string(caption) + u"|" + std::u16string(text);
    Flags = flags;
    return Answer;
  }

  UnhandledExceptionFilter Filter = nullptr;
  int Answer = 0;
  int Flags = 0;
  std::u16string Shown;
};

}  // namespace quorvane::test

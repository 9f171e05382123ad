#pragma once

#include "platform/ExceptionFilter.h"
#include "windows/com/Win32.h"

namespace quorvane::windows {

/// The filter of the whole process for exceptions that nobody handles. One object at a time. When it goes, what was in
/// force before is in force again; where somebody has put a filter of theirs above ours, and so may still call it, this
/// program's file stays in memory for good instead.
class Win32FaultFilter final : public ExceptionFilter {
 public:
  Win32FaultFilter() = default;
  ~Win32FaultFilter() override;
  Win32FaultFilter(const Win32FaultFilter&) = delete;
  Win32FaultFilter& operator=(const Win32FaultFilter&) = delete;

  UnhandledExceptionFilter SetUnhandledExceptionFilter(UnhandledExceptionFilter filter) override;
  int FaultBox(std::u16string_view text, int flags, std::u16string_view caption) noexcept override;

 private:
  void PutInForce();
  void TakeOut();
};

}  // namespace quorvane::windows

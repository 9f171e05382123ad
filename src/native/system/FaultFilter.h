#pragma once

#include <string>
#include <vector>

#include "platform/ExceptionFilter.h"

namespace quorvane::native {

/// The faults of this platform: SIGSEGV, SIGBUS, SIGFPE and SIGILL, taken on a stack of their own so that a stack that
/// has run over is caught too. One object at a time, made on the thread of the user interface.
class FaultFilter final : public ExceptionFilter {
 public:
  /// `question` is the absolute path of a program and its first arguments. It gets the text, the flags in decimal and
  /// the caption as further arguments, shows the box and ends with the answer (3 Abort, 4 Retry, 5 Ignore) as its
  /// status. Without a question the caption goes to standard error and the answer is Abort.
  explicit FaultFilter(std::vector<std::string> question = {});
  ~FaultFilter() override;
  FaultFilter(const FaultFilter&) = delete;
  FaultFilter& operator=(const FaultFilter&) = delete;

  UnhandledExceptionFilter SetUnhandledExceptionFilter(UnhandledExceptionFilter filter) override;
  int FaultBox(std::u16string_view text, int flags, std::u16string_view caption) noexcept override;

 private:
  std::vector<std::string> question_;
  std::vector<char*> arguments_;  ///< of the question; the last four are text, flags, caption and null
};

}  // namespace quorvane::native

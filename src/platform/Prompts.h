#pragma once

#include <string>

namespace quorvane {

/// Message boxes.
class Prompts {
 public:
  virtual ~Prompts() = default;

  /// Buttons and icon of `flags` and the answer have the platform's values: flags 0 OK, 1 OK and Cancel, 2 Abort, Retry
  /// and Ignore, 4 Yes and No, 16 critical, 32 question, 256 second button as default; answers 1 OK, 2 Cancel, 3 Abort,
  /// 4 Retry, 5 Ignore, 6 Yes, 7 No.
  virtual int MsgBox(const std::u16string& text, int flags, const std::u16string& caption) = 0;
};

}  // namespace quorvane

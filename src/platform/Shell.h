#pragma once

#include <string>

namespace quorvane {

/// The user's browser and mail program.
class Shell {
 public:
  virtual ~Shell() = default;

  /// Opens a web address in a new browser window, or a "mailto:" address in the mail program, and returns at once.
  /// Raises when there is no program for it.
  virtual void OpenAddress(const std::u16string& address) = 0;
};

}  // namespace quorvane

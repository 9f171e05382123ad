#pragma once

#include "platform/Shell.h"

namespace quorvane::windows {

/// The user's own programs for addresses. Nothing but web and mail addresses is opened.
class Win32Shell final : public Shell {
 public:
  void OpenAddress(const std::u16string& address) override;
};

}  // namespace quorvane::windows

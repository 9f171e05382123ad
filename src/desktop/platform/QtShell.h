#pragma once

#include "platform/Shell.h"

namespace quorvane::desktop {

/// The desktop's own programs for addresses.
class QtShell final : public Shell {
 public:
  void OpenAddress(const std::u16string& address) override;
};

}  // namespace quorvane::desktop

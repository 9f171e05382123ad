#pragma once

#include "platform/Prompts.h"

namespace quorvane::desktop {

/// Message boxes over the window that the user is in.
class QtPrompts final : public Prompts {
 public:
  int MsgBox(const std::u16string& text, int flags, const std::u16string& caption) override;
};

}  // namespace quorvane::desktop

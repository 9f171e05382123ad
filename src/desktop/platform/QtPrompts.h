#pragma once

#include "platform/Prompts.h"

namespace quorvane::desktop {

/// Message boxes and file dialogs over the window that the user is in.
class QtPrompts final : public Prompts {
 public:
  int MsgBox(const std::u16string& text, int flags, const std::u16string& caption) override;
  std::optional<std::u16string> AskSaveFileName(const FileDialogSetup& setup) override;
};

}  // namespace quorvane::desktop

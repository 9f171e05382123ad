#pragma once

#include <QString>
#include <functional>

#include "platform/Prompts.h"

namespace quorvane::desktop {

/// Message boxes and file dialogs over the window that the user is in.
class QtPrompts final : public Prompts {
 public:
  /// Shows a line that needs no answer; empty: there is no place for one.
  std::function<void(const QString&)> Tell;

  int MsgBox(const std::u16string& text, int flags, const std::u16string& caption) override;
  /// The sentence first, number and source below it; a member of nothing, which tells a user nothing, is a line in
  /// passing.
  void ShowError(const Error& error, const std::u16string& report, const std::u16string& caption) override;
  std::optional<std::u16string> AskSaveFileName(const FileDialogSetup& setup) override;
};

}  // namespace quorvane::desktop

#pragma once

#include "platform/Prompts.h"
#include "windows/com/Win32.h"

namespace quorvane::windows {

/// Message boxes and file dialogs of the window system. They belong to the form that is shown modally in front, else to
/// the host's main window, and while one waits every other window of the thread is disabled.
class Win32Prompts final : public Prompts {
 public:
  void SetMainWindow(HWND window) { mainWindow_ = window; }

  int MsgBox(const std::u16string& text, int flags, const std::u16string& caption) override;
  std::optional<std::u16string> AskSaveFileName(const FileDialogSetup& setup) override;

 private:
  HWND Owner() const;

  HWND mainWindow_ = nullptr;
};

}  // namespace quorvane::windows

#include "platform/Prompts.h"

#include "base/Error.h"

namespace quorvane {

void Prompts::ShowError(const Error&, const std::u16string& report, const std::u16string& caption) {
  MsgBox(report, kOkOnly, caption);
}

std::optional<std::u16string> Prompts::AskSaveFileName(const FileDialogSetup&) {
  RaiseError(ErrorNumber::ActionNotSupported, ErrorText(ErrorNumber::ActionNotSupported) + u": file dialog");
}

}  // namespace quorvane

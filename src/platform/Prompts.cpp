#include "platform/Prompts.h"

#include "base/Error.h"

namespace quorvane {

std::optional<std::u16string> Prompts::AskSaveFileName(const FileDialogSetup&) {
  RaiseError(ErrorNumber::ActionNotSupported, ErrorText(ErrorNumber::ActionNotSupported) + u": file dialog");
}

}  // namespace quorvane

#include "platform/forms/CommonDialog.h"

#include "base/Error.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace quorvane::forms {

void CommonDialog::ShowSave() {
  const auto chosen = ThePlatform().MessageBoxes().AskSaveFileName({FileName, Filter, DialogTitle, DefaultExt});
  if (chosen) {
    FileName = *chosen;
  } else if (CancelError) {
    RaiseError(ErrorNumber::DialogCanceled, u"Cancel was selected.");
  }
}

}  // namespace quorvane::forms

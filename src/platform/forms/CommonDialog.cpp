#include "platform/forms/CommonDialog.h"

#include "base/Error.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"

namespace quorvane::forms {

namespace {

constexpr std::int32_t kCanceled = 32755;

}  // namespace

void CommonDialog::ShowSave() {
  const auto chosen = ThePlatform().MessageBoxes().AskSaveFileName({FileName, Filter, DialogTitle, DefaultExt});
  if (chosen) {
    FileName = *chosen;
  } else if (CancelError) {
    throw Error(kCanceled, u"Cancel was selected.");
  }
}

}  // namespace quorvane::forms

#include "dialogs/FramedDialog.h"

#include "host/Globals.h"
#include "services/ErrorManager.h"

namespace quorvane {

FramedDialog::~FramedDialog() = default;

/// The shared ErrorManager may be gone already.
void FramedDialog::ShowEventError() {
  if (Globals::gobjErrorManager) {
    Globals::gobjErrorManager->ShowErr();
  } else {
    ErrorManager().ShowErr();
  }
}

}  // namespace quorvane

#include "addin/dialogs/FramedDialog.h"

namespace quorvane {

FramedDialog::~FramedDialog() = default;

}  // namespace quorvane

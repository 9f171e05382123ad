#include "platform/forms/CommandButton.h"

namespace quorvane {

void CommandButton::Press() {
  if (Enabled() && Visible()) Click.Raise();
}

}  // namespace quorvane

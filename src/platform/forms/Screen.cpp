#include "platform/forms/Screen.h"

namespace quorvane::forms {

Screen& TheScreen() {
  static Screen screen;
  return screen;
}

}  // namespace quorvane::forms

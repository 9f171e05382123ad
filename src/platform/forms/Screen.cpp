#include "platform/forms/Screen.h"

namespace quorvane {

Screen& TheScreen() {
  static Screen screen;
  return screen;
}

}  // namespace quorvane

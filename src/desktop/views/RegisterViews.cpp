#include "desktop/views/RegisterViews.h"

#include "desktop/ViewFactory.h"

namespace quorvane::desktop {

void RegisterViews(ViewFactory&, QtWindows&) {}

}  // namespace quorvane::desktop

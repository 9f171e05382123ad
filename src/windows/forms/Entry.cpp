#include "windows/forms/Entry.h"

#include "addin/core/ErrorManager.h"
#include "base/Skip.h"

namespace quorvane::windows {

void ShowCaught() noexcept {
  SkipErrors([] { ShowHandledError(); });
}

}  // namespace quorvane::windows

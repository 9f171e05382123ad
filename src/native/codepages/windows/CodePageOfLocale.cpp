#include <windows.h>

#include "base/Error.h"
#include "native/codepages/CodePages.h"
#include "platform/CodePage.h"

namespace quorvane::native {

std::string CodePageOfLocale() {
  try {
    return NewCodePage(std::to_string(GetACP()))->Name();
  } catch (const Error&) {
    return "1252";
  }
}

}  // namespace quorvane::native

#include "native/files/FileBytes.h"

#include <cerrno>
#include <system_error>

namespace quorvane::native {

std::string ErrnoText(int error) {
  if (error == kNotRegularFile) return "not a regular file";
  return std::generic_category().message(error);
}

bool IsDiskFull(int error) {
#ifdef EDQUOT
  if (error == EDQUOT) return true;
#endif
  return error == ENOSPC || error == EFBIG;
}

}  // namespace quorvane::native

#include "native/files/AtomicFile.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/Error.h"
#include "base/FilePath.h"
#include "base/Text.h"
#include "native/files/FileAccess.h"
#include "native/files/FileBytes.h"
#include "native/files/Leftovers.h"
#include "native/files/NewFile.h"

namespace quorvane::native {

namespace {

[[noreturn]] void RaiseFileError(const std::string& path, int code) {
  RaiseError(IsDiskFull(code) ? ErrorNumber::DiskFull : ErrorNumber::PathFileAccess,
             u"Cannot write " + FromUtf8(path) + u": " + FromUtf8(ErrnoText(code)));
}

/// The file that a link leads to, be it there or not; the path itself when it is none.
std::string Target(const std::string& path) {
  std::error_code failed;
  if (!std::filesystem::is_symlink(FilePath(path), failed)) return path;
  const std::filesystem::path real = std::filesystem::weakly_canonical(FilePath(path), failed);
  return failed ? path : PathText(real);
}

}  // namespace

void WriteFileWhole(const std::string& path, std::string_view bytes) {
  const std::string target = Target(path);
  if (std::error_code ignored; std::filesystem::is_directory(FilePath(target), ignored)) RaiseFileError(path, EISDIR);
  RemoveLeftovers({target});
  NewFile file(target);
  int code = file.Made();
  if (code == 0) code = file.Write(bytes);
  if (code == 0) code = file.Dress();
  if (code == 0) code = file.Finish();
  if (code == 0) code = file.TakePlace();
  if (code != 0) RaiseFileError(path, code);
  // The new file is in place whatever comes of this, and not every file system can do it.
  FlushFolder(PathText(FilePath(target).parent_path()));
}

}  // namespace quorvane::native

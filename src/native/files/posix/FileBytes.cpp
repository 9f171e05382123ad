#include "native/files/FileBytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <limits>

#include "native/files/posix/Stat.h"

namespace quorvane::native {

namespace {

/// Closes its file when it goes.
class OpenFile {
 public:
  /// Without O_NONBLOCK, opening a pipe that nobody writes to would wait for ever.
  explicit OpenFile(const std::string& path) : handle_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  ~OpenFile() {
    if (handle_ >= 0) ::close(handle_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int Handle() const { return handle_; }

 private:
  int handle_;
};

/// 0, or the errno for a file that cannot be a module or project.
int Unfit(const struct stat& found) {
  if (S_ISDIR(found.st_mode)) return EISDIR;
  if (!S_ISREG(found.st_mode)) return kNotRegularFile;
  return found.st_size >= std::numeric_limits<std::int32_t>::max() ? EFBIG : 0;
}

/// `length` becomes what there was.
int ReadAll(int handle, char* bytes, std::size_t& length) {
  std::size_t done = 0;
  while (done < length) {
    const ssize_t count = ::read(handle, bytes + done, length - done);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    if (count == 0) break;  // the file has become shorter
    done += static_cast<std::size_t>(count);
  }
  length = done;
  return 0;
}

}  // namespace

FileRead ReadFileInto(const std::string& path, std::string& buffer) {
  FileRead file;
  const OpenFile opened(path);
  struct stat found {};
  if (opened.Handle() < 0 || ::fstat(opened.Handle(), &found) != 0) {
    file.error = errno;
    return file;
  }
  file.error = Unfit(found);
  if (file.error != 0) return file;
  file.stamp = StampOf(found);
  file.length = static_cast<std::size_t>(found.st_size);
  if (buffer.size() < file.length) buffer.resize(file.length);
  file.error = ReadAll(opened.Handle(), buffer.data(), file.length);
  return file;
}

}  // namespace quorvane::native

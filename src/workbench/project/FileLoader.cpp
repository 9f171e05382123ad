#include "workbench/project/FileLoader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <limits>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "base/Error.h"

namespace quorvane::workbench {

namespace {

constexpr std::size_t kFilesWorthAThread = 32;
constexpr std::int32_t kUserInterrupt = 18;

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

int ReadAll(int handle, std::string& bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t count = ::read(handle, bytes.data() + done, bytes.size() - done);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    if (count == 0) break;  // the file has become shorter
    done += static_cast<std::size_t>(count);
  }
  bytes.resize(done);
  return 0;
}

LoadedFile Load(const std::string& path) noexcept {
  LoadedFile loaded;
  try {
    FileBytes file = ReadFileBytes(path);
    loaded.stamp = file.stamp;
    loaded.error = file.error;
    if (file.error == 0) loaded.source = std::make_shared<const SourceFile>(std::move(file.bytes));
  } catch (const std::bad_alloc&) {
    loaded.error = ENOMEM;
  }
  return loaded;
}

}  // namespace

std::string ErrnoText(int error) {
  if (error == kNotRegularFile) return "not a regular file";
  return std::generic_category().message(error);
}

FileBytes ReadFileBytes(const std::string& path) {
  FileBytes file;
  const OpenFile opened(path);
  struct stat found {};
  if (opened.Handle() < 0 || ::fstat(opened.Handle(), &found) != 0) {
    file.error = errno;
    return file;
  }
  file.error = Unfit(found);
  if (file.error != 0) return file;
  file.stamp = FileStamp::From(found);
  file.bytes.resize(static_cast<std::size_t>(found.st_size));
  file.error = ReadAll(opened.Handle(), file.bytes);
  return file;
}

std::vector<LoadedFile> LoadFiles(const std::vector<std::string>& paths, const LoadProgress& progress) {
  std::vector<LoadedFile> files(paths.size());
  std::atomic<std::size_t> next = 0;
  std::atomic<bool> stopped = false;
  const auto work = [&] {
    for (std::size_t i = next++; i < paths.size() && !stopped; i = next++) files[i] = Load(paths[i]);
  };
  const auto workAndTell = [&] {
    for (std::size_t i = next++; i < paths.size(); i = next++) {
      if (!progress(i, paths.size())) throw Error(kUserInterrupt, u"Interrupted by the user");
      files[i] = Load(paths[i]);
    }
  };
  const std::size_t wanted =
      std::min<std::size_t>(std::thread::hardware_concurrency(), paths.size() / kFilesWorthAThread);
  std::vector<std::jthread> threads;
  try {
    while (threads.size() + 1 < wanted) threads.emplace_back(work);
  } catch (const std::system_error&) {
    // No more threads to be had: those that run do the work.
  }
  try {
    progress ? workAndTell() : work();
  } catch (...) {
    stopped = true;  // before the threads are waited for
    throw;
  }
  threads.clear();
  return files;
}

}  // namespace quorvane::workbench

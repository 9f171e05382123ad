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
#include "base/Text.h"

namespace quorvane::workbench {

namespace {

constexpr std::size_t kFilesWorthAThread = 32;
constexpr std::int32_t kUserInterrupt = 18;
constexpr std::int32_t kPathFileAccess = 75;

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

std::string ReadAgain(const std::string& path) {
  FileBytes file = ReadFileBytes(path);
  if (file.error != 0) throw Error(kPathFileAccess, FromUtf8(path + ": " + ErrnoText(file.error)));
  return std::move(file.bytes);
}

/// What the sieve lets through gets the table of its lines too, here where all threads work.
std::shared_ptr<const SourceFile> Sieved(const std::string& path, std::string_view bytes,
                                         const std::shared_ptr<const Sieve>& sieve) {
  auto source = std::make_shared<const SourceFile>(bytes, sieve, [path] { return ReadAgain(path); });
  if (!source->Lacks(*sieve)) source->Lines();
  return source;
}

/// `buffer` is the thread's own, used again for each file.
LoadedFile Load(const std::string& path, const std::shared_ptr<const Sieve>& sieve, std::string& buffer) noexcept {
  LoadedFile loaded;
  try {
    if (!sieve) buffer = {};
    const FileRead read = ReadFileInto(path, buffer);
    loaded.stamp = read.stamp;
    loaded.error = read.error;
    if (read.error != 0) return loaded;
    if (sieve) {
      loaded.source = Sieved(path, std::string_view(buffer).substr(0, read.length), sieve);
    } else {
      buffer.resize(read.length);
      loaded.source = std::make_shared<const SourceFile>(std::move(buffer));
    }
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
  const FileRead read = ReadFileInto(path, file.bytes);
  file.bytes.resize(read.length);
  file.stamp = read.stamp;
  file.error = read.error;
  return file;
}

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
  file.stamp = FileStamp::From(found);
  file.length = static_cast<std::size_t>(found.st_size);
  if (buffer.size() < file.length) buffer.resize(file.length);
  file.error = ReadAll(opened.Handle(), buffer.data(), file.length);
  return file;
}

std::vector<LoadedFile> LoadFiles(const std::vector<std::string>& paths, const LoadProgress& progress,
                                  const std::shared_ptr<const Sieve>& sieve) {
  std::vector<LoadedFile> files(paths.size());
  std::atomic<std::size_t> next = 0;
  std::atomic<bool> stopped = false;
  const auto work = [&] {
    std::string buffer;
    for (std::size_t i = next++; i < paths.size() && !stopped; i = next++) files[i] = Load(paths[i], sieve, buffer);
  };
  const auto workAndTell = [&] {
    std::string buffer;
    for (std::size_t i = next++; i < paths.size(); i = next++) {
      if (!progress(i, paths.size())) throw Error(kUserInterrupt, u"Interrupted by the user");
      files[i] = Load(paths[i], sieve, buffer);
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

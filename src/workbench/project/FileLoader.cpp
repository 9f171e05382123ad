#include "workbench/project/FileLoader.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "native/files/FileBytes.h"

namespace quorvane::workbench {

namespace {

constexpr std::size_t kFilesWorthAThread = 32;

std::string ReadAgain(const std::string& path) {
  native::FileBytes file = native::ReadFileBytes(path);
  if (file.error != 0) RaiseError(ErrorNumber::PathFileAccess, FromUtf8(path + ": " + native::ErrnoText(file.error)));
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
    const native::FileRead read = native::ReadFileInto(path, buffer);
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
      if (!progress(i, paths.size())) RaiseError(ErrorNumber::UserInterrupt, u"Interrupted by the user");
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

#include "workbench/project/FileLoader.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "base/Error.h"
#include "native/files/FileBytes.h"

namespace quorvane::workbench {

namespace {

constexpr std::size_t kFilesWorthAThread = 32;
constexpr std::int32_t kUserInterrupt = 18;

LoadedFile Load(const std::string& path) noexcept {
  LoadedFile loaded;
  try {
    native::FileBytes file = native::ReadFileBytes(path);
    loaded.stamp = file.stamp;
    loaded.error = file.error;
    if (file.error == 0) loaded.source = std::make_shared<const SourceFile>(std::move(file.bytes));
  } catch (const std::bad_alloc&) {
    loaded.error = ENOMEM;
  }
  return loaded;
}

}  // namespace

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

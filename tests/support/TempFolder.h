#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/FilePath.h"

namespace quorvane::test {

/// A new folder that goes with everything in it at the end of the test. Names and paths are UTF-8.
class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("quorvane-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  /// The path of a file in it.
  std::string operator/(std::string_view name) const { return PathText(path_ / FilePath(name)); }

  /// Writes a file and makes the folders above it. Returns its path.
  std::string Write(std::string_view name, std::string_view bytes) const {
    const std::filesystem::path file = path_ / FilePath(name);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!stream.flush()) throw std::runtime_error("cannot write " + PathText(file));
    return PathText(file);
  }

  std::string Read(std::string_view name) const {
    std::ifstream stream(path_ / FilePath(name), std::ios::binary);
    if (!stream) throw std::runtime_error("cannot read " + *this / name);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

 private:
  std::filesystem::path path_;
};

/// Makes a folder the working directory until the end of the scope.
class WorkingDirectory {
 public:
  explicit WorkingDirectory(const std::filesystem::path& path) : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(path);
  }
  ~WorkingDirectory() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }
  WorkingDirectory(const WorkingDirectory&) = delete;
  WorkingDirectory& operator=(const WorkingDirectory&) = delete;

 private:
  std::filesystem::path before_;
};

}  // namespace quorvane::test

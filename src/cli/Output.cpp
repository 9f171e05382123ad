#include "cli/Output.h"

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/Error.h"
#include "base/FilePath.h"
#include "base/Text.h"
#include "native/files/FileAccess.h"
#include "native/files/FileBytes.h"
#include "native/files/Leftovers.h"

namespace quorvane::cli {

namespace {
constexpr std::size_t kBufferSize = 64 * 1024;
}  // namespace

Output::Output(std::string path) : path_(std::move(path)) {
  buffer_.reserve(kBufferSize);
  if (path_.empty()) return;
  std::error_code failed;
  const std::filesystem::file_status status = std::filesystem::status(FilePath(path_), failed);
  const bool exists = std::filesystem::exists(status);
  if (exists && !std::filesystem::is_regular_file(status)) {  // a device or a pipe has no place to be renamed to
    Check(raw_.Open(path_));
    return;
  }
  if (exists && !native::CanWrite(path_)) Check(errno);
  if (exists) path_ = native::RealPath(path_);
  native::RemoveLeftovers({path_});
  file_.emplace(path_);
  Check(file_->Made());
  Check(file_->Dress());
}

void Output::Write(std::string_view bytes) {
  if (closed_) return;
  buffer_ += bytes;
  if (buffer_.size() >= kBufferSize) Flush();
}

void Output::Flush() {
  if (!closed_) {
    const int error = file_ ? file_->Write(buffer_) : raw_.Write(buffer_);
    closed_ = error != 0;
    if (error != EPIPE) failure_ = error;
  }
  buffer_.clear();
}

void Output::Finish() {
  Flush();
  Check(failure_);
  if (!file_) return;
  Check(file_->Finish());
  Check(file_->TakePlace());
}

void Output::Check(int error) const {
  if (error == 0) return;
  const std::string name = path_.empty() ? "standard output" : path_;
  throw Error(error, FromUtf8(name + ": " + native::ErrnoText(error)));
}

}  // namespace quorvane::cli

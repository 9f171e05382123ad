#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "cli/RawOutput.h"
#include "native/files/NewFile.h"

namespace quorvane::cli {

/// Where results go: standard output, or a file that appears whole at its place when all of it is written. Without
/// Finish, a file that was begun goes.
class Output {
 public:
  /// An empty path is standard output. A path that cannot be written raises an error that names it.
  explicit Output(std::string path);
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  /// Raises nothing: a write that fails closes the output, and Finish tells.
  void Write(std::string_view bytes);
  /// Writes out what is buffered; a file gets its name. Raises an error with the path when anything was not written.
  void Finish();

  /// The reader has gone or a write has failed: nothing more is written, and there is no point in going on.
  bool Closed() const { return closed_; }
  bool IsTerminal() const { return !file_ && raw_.IsTerminal(); }

 private:
  void Flush();
  void Check(int error) const;  ///< raises for all but 0

  std::string path_;                     ///< empty: standard output
  std::optional<native::NewFile> file_;  ///< no value when written in place
  RawOutput raw_;
  std::string buffer_;
  bool closed_ = false;
  int failure_ = 0;  ///< errno of the write that failed; a reader that went away is no failure
};

}  // namespace quorvane::cli

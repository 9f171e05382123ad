#pragma once

#include <string>
#include <string_view>

namespace quorvane::cli {

/// Bytes that leave the program as they are, at once: to standard output or error, or to a device or pipe.
class RawOutput {
 public:
  static constexpr int kStandardOutput = 1;
  static constexpr int kStandardError = 2;

  explicit RawOutput(int file = kStandardOutput);
  ~RawOutput();
  RawOutput(const RawOutput&) = delete;
  RawOutput& operator=(const RawOutput&) = delete;

  /// Takes a device or pipe by its path (UTF-8) instead. 0 or an errno.
  int Open(const std::string& path);
  /// 0 or an errno; EPIPE when the reader has gone.
  int Write(std::string_view bytes);
  /// Whether somebody looks at it who sees colours.
  bool IsTerminal() const;

 private:
  int file_;
  std::string held_;  ///< the end of a line that a console has not got yet
};

}  // namespace quorvane::cli

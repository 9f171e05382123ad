#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorvane::workbench {

/// Finds a run of ASCII characters, or any byte beyond ASCII, in raw bytes, fast. A byte of a longer character may look
/// like ASCII, so that a hit is a candidate; but no place where the decoded text holds the run is ever passed over.
class ByteScanner {
 public:
  ByteScanner() = default;
  /// `run` is ASCII. Without `matchCase` its letters stand for both cases.
  ByteScanner(std::string_view run, bool matchCase);

  /// Finds the bytes beyond ASCII.
  static ByteScanner BeyondAscii();

  /// False when there is nothing to scan for: every place is a candidate.
  bool Usable() const { return beyondAscii_ || !run_.empty(); }

  /// 0-based place of the first candidate at `from` or after it; npos when there is none.
  std::size_t Find(std::string_view bytes, std::size_t from) const;

 private:
  /// One byte of the run to look for: byte `at` of it matches b when (b | mask) == value.
  struct Probe {
    std::size_t at = 0;
    unsigned char mask = 0;
    unsigned char value = 0;
  };

  Probe ProbeAt(std::size_t at) const;
  bool MatchesAt(const char* bytes) const;

  std::string run_;  ///< lower case unless the case has to match
  bool matchCase_ = false;
  bool beyondAscii_ = false;
  Probe first_;   ///< the rarest byte of the run
  Probe second_;  ///< the next rarest; the same one in a run of one byte
};

}  // namespace quorvane::workbench

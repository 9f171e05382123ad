#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/text/ByteScanner.h"

namespace quorvane::workbench {

/// Tells from the raw bytes of a module file that no search of one kind can match in it. Thread-safe.
class Sieve {
 public:
  /// Lets everything through.
  Sieve() = default;
  /// Lets a file through that holds one of `texts` (ASCII; none: every file), in either case unless `matchCase`.
  Sieve(std::vector<std::string> texts, bool matchCase);
  /// Lets a file through that holds a byte beyond ASCII.
  static Sieve BeyondAscii();

  bool Usable() const { return !scanners_.empty(); }
  /// False only when the decoded text of `bytes` holds none of what this looks for, whatever the code page, and no line
  /// that is too long for a screen column to be counted stands at its end.
  bool LetsThrough(std::string_view bytes) const;

  bool operator==(const Sieve& other) const {
    return texts_ == other.texts_ && matchCase_ == other.matchCase_ && beyondAscii_ == other.beyondAscii_;
  }

 private:
  std::vector<std::string> texts_;  ///< lower case unless the case has to match
  bool matchCase_ = false;
  bool beyondAscii_ = false;
  std::vector<ByteScanner> scanners_;
};

}  // namespace quorvane::workbench

#pragma once

#include <cstdint>

namespace quorvane::workbench {

/// Counts the turns of the message loop. Edits of one turn are one step of undo.
class TurnClock {
 public:
  std::uint64_t Now() const { return now_; }
  void Next() { ++now_; }

 private:
  std::uint64_t now_ = 1;
};

}  // namespace quorvane::workbench

#pragma once

#include <functional>

#include "windows/com/ModuleReference.h"

namespace quorvane::com {

/// One call from outside into this program: a method of an object of ours, a message to a window, a timer, a hook.
/// Entries nest; as long as one stands nothing under its feet may go, nor does the code end. What has to wait for that
/// is told to WhenAtRest, and runs at the end of the outermost entry.
///
/// Each thread counts its own; the code itself belongs to one of them.
class Entry {
 public:
  Entry();
  ~Entry();
  Entry(const Entry&) = delete;
  Entry& operator=(const Entry&) = delete;

  /// How many stand on this thread.
  static int Depth();
  /// Runs `action` after the outermost entry; at once when none stands. What it raises is ignored. For the thread of
  /// the code alone.
  static void WhenAtRest(std::function<void()> action);

 private:
  static void Rest();

  ModuleReference module_;
};

}  // namespace quorvane::com

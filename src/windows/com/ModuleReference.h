#pragma once

namespace quorvane::com {

/// What keeps the program file loaded: objects of ours that others hold, locks of its class objects, and entries from
/// outside that still stand on the stack. When the last of them goes the code ends.
///
/// Any thread may count.
class ModuleReference {
 public:
  ModuleReference();
  ~ModuleReference();
  ModuleReference(const ModuleReference&) = delete;
  ModuleReference& operator=(const ModuleReference&) = delete;

  static long Count();
  /// One that no object holds, and its end.
  static void Take();
  static void Drop();
  /// Called each time the count comes down to 0, after the end of the object that held the last; must not raise. The
  /// count is 0 during the call, and a reference taken and dropped in it does not call again. Nothing to call nobody.
  static void WhenUnused(void (*ended)());
};

}  // namespace quorvane::com

#pragma once

#include "windows/forms/Win32.h"

namespace quorvane::windows {

/// While it lives, windows that are made get the controls of the system's newer library, in its visual style, whatever
/// the program that has loaded this module asks for. Without the manifest in the module's resources nothing changes.
class ThemeScope {
 public:
  ThemeScope();
  ~ThemeScope();
  ThemeScope(const ThemeScope&) = delete;
  ThemeScope& operator=(const ThemeScope&) = delete;

  /// Whether those controls are there to be had.
  static bool HasControls();
  /// For the end of the code.
  static void Forget();

 private:
  ULONG_PTR cookie_ = 0;
};

}  // namespace quorvane::windows

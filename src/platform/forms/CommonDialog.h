#pragma once

#include <string>

namespace quorvane::forms {

/// The file dialog of a form or document.
class CommonDialog {
 public:
  std::u16string FileName;     ///< what is offered, then what was chosen
  std::u16string Filter;       ///< pairs of words and pattern, all with "|" between them
  std::u16string DialogTitle;  ///< empty: the platform's own
  std::u16string DefaultExt;   ///< for a name without an extension
  bool CancelError = false;    ///< whether a cancel raises error 32755

  /// Returns when the user has chosen or cancelled; a cancel leaves FileName as it was.
  void ShowSave();
};

}  // namespace quorvane::forms

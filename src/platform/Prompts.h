#pragma once

#include <optional>
#include <string>

namespace quorvane {

/// What a file dialog shows.
struct FileDialogSetup {
  std::u16string FileName;    ///< offered; a path or a name, may be empty
  std::u16string Filter;      ///< pairs of words and pattern, all with "|" between them
  std::u16string Title;       ///< empty: the platform's own
  std::u16string DefaultExt;  ///< for a name without an extension; with or without its dot
};

/// Message boxes and file dialogs.
class Prompts {
 public:
  virtual ~Prompts() = default;

  /// Buttons and icon of `flags` and the answer have the platform's values: flags 0 OK, 1 OK and Cancel, 2 Abort, Retry
  /// and Ignore, 4 Yes and No, 16 critical, 32 question, 256 second button as default; answers 1 OK, 2 Cancel, 3 Abort,
  /// 4 Retry, 5 Ignore, 6 Yes, 7 No.
  virtual int MsgBox(const std::u16string& text, int flags, const std::u16string& caption) = 0;

  /// The path that the user chose to save to, the default extension added where it is due; nothing for a cancel. Raises
  /// error 445 where the platform has no file dialog.
  virtual std::optional<std::u16string> AskSaveFileName(const FileDialogSetup& setup);
};

}  // namespace quorvane

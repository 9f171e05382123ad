#pragma once

#include <optional>
#include <string>

namespace quorvane {

class Error;

/// What a file dialog shows.
struct FileDialogSetup {
  std::u16string FileName;    ///< offered; a path or a name, may be empty
  std::u16string Filter;      ///< pairs of words and pattern, all with "|" between them
  std::u16string Title;       ///< empty: the platform's own
  std::u16string DefaultExt;  ///< for a name without an extension; with or without its dot
};

/// What a message box shows: its buttons, and an icon and another default button added to them.
enum MsgBoxFlag : int {
  kOkOnly = 0,
  kOkCancel = 1,
  kAbortRetryIgnore = 2,
  kYesNoCancel = 3,
  kYesNo = 4,
  kRetryCancel = 5,
  kCritical = 16,
  kQuestion = 32,
  kExclamation = 48,
  kInformation = 64,
  kSecondButton = 256,  ///< is the default
};

/// The button that ended a message box.
enum MsgBoxAnswer : int {
  kAnswerOk = 1,
  kAnswerCancel = 2,
  kAnswerAbort = 3,
  kAnswerRetry = 4,
  kAnswerIgnore = 5,
  kAnswerYes = 6,
  kAnswerNo = 7,
};

/// Message boxes and file dialogs.
class Prompts {
 public:
  virtual ~Prompts() = default;

  /// `flags` is a sum of MsgBoxFlag, the answer a MsgBoxAnswer.
  virtual int MsgBox(const std::u16string& text, int flags, const std::u16string& caption) = 0;

  /// Tells the user of `error`; `report` is the full text of what there is to say, which a box shows by default.
  virtual void ShowError(const Error& error, const std::u16string& report, const std::u16string& caption);

  /// The path that the user chose to save to, the default extension added where it is due; no value for a cancel. Raises
  /// error 445 where the platform has no file dialog.
  virtual std::optional<std::u16string> AskSaveFileName(const FileDialogSetup& setup);
};

}  // namespace quorvane

#pragma once

namespace quorvane {

/// What the connection, the result menu and the hotkeys need of the form "frmSearchDialog".
class ISearchDialog {
 public:
  virtual ~ISearchDialog() = default;

  /// Shows the dialog, the only way in. The first show loads it.
  virtual void ShowEx() = 0;
};

}  // namespace quorvane

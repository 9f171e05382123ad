#pragma once

#include <QTranslator>

namespace quorvane::desktop {

/// The toolkit's own words in Chinese, as far as a user of the workbench meets them: buttons of boxes and the menus of
/// text fields. Works while it is installed on the application.
class ToolkitTexts final : public QTranslator {
 public:
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char* disambiguation, int n) const override;

  /// Names the buttons of docks and tab bars anew, which keep those of the language that they were made in.
  static void NameParts();
};

}  // namespace quorvane::desktop

#pragma once

#include <QMap>
#include <QString>
#include <string>

#include "desktop/files/EncodingScope.h"

class QSettings;

namespace quorvane {

class CodePage;

namespace desktop {

/// The code pages that the user chose for a group, its projects and modules, kept from run to run. The choice for a
/// module counts before that for its project, and that before the one for the group.
class Encodings {
 public:
  /// `store` outlives this.
  explicit Encodings(QSettings& store) : store_(store) {}

  /// From now on the choices of the group that is known by this file, the first one that was opened.
  void SetGroup(const QString& file);

  /// What was chosen for a module, or with an empty one for a project file, or with both empty for the group, by their
  /// paths; null where nothing was. The page lives as long as the process.
  const CodePage* Of(const std::string& project, const std::string& module) const;
  /// Remembers a choice, in the place of all that lie within it.
  void Choose(const EncodingScope& scope, const QString& page);

 private:
  void Save();

  QSettings& store_;
  QString group_;
  QMap<QString, QString> pages_;  ///< by the absolute paths of project and module, one after the other
};

}  // namespace desktop
}  // namespace quorvane

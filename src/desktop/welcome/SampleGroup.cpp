#include "desktop/welcome/SampleGroup.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include "base/Error.h"
#include "desktop/platform/QtText.h"

namespace quorvane::desktop {

QString SampleGroup::Unpack(const QString& folder) {
  const QDir source(QStringLiteral(":/samples"));
  const QDir target(folder);
  QDirIterator files(source.path(), QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString file = files.next();
    const QString copy = target.absoluteFilePath(source.relativeFilePath(file));
    if (QFileInfo::exists(copy)) continue;
    if (!QDir().mkpath(QFileInfo(copy).path()) || !QFile::copy(file, copy)) {
      RaiseError(ErrorNumber::PathFileAccess, u"Path/File access error: " + FromQString(copy));
    }
    QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
  }
  return target.absoluteFilePath(QStringLiteral("Shop/Shop.vbg"));
}

}  // namespace quorvane::desktop

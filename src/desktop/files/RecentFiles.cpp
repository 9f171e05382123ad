#include "desktop/files/RecentFiles.h"

#include <QSettings>

namespace quorvane::desktop {

namespace {

const QString kArray = QStringLiteral("recent");
const QString kFiles = QStringLiteral("files");

}  // namespace

RecentFiles::RecentFiles(QSettings& store) : store_(store) {
  const int count = store_.beginReadArray(kArray);
  for (int i = 0; i < count; ++i) {
    store_.setArrayIndex(i);
    const QStringList files = store_.value(kFiles).toStringList();
    if (!files.isEmpty() && entries_.size() < kMost) entries_.append(files);
  }
  store_.endArray();
}

void RecentFiles::Add(const QStringList& files) {
  entries_.removeAll(files);
  entries_.prepend(files);
  if (entries_.size() > kMost) entries_.resize(kMost);
  Save();
}

void RecentFiles::Remove(const QStringList& files) {
  entries_.removeAll(files);
  Save();
}

void RecentFiles::Save() {
  store_.remove(kArray);
  store_.beginWriteArray(kArray, static_cast<int>(entries_.size()));
  for (int i = 0; i < entries_.size(); ++i) {
    store_.setArrayIndex(i);
    store_.setValue(kFiles, entries_[i]);
  }
  store_.endArray();
}

}  // namespace quorvane::desktop

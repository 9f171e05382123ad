#pragma once

#include <QStringList>

class QSettings;

namespace quorvane::desktop {

/// What was opened last, newest first. One entry is what was opened together.
class RecentFiles {
 public:
  static constexpr qsizetype kMost = 10;

  /// `store` outlives this.
  explicit RecentFiles(QSettings& store);

  const QList<QStringList>& Entries() const { return entries_; }
  /// Puts an entry first, and keeps the list.
  void Add(const QStringList& files);
  void Remove(const QStringList& files);

 private:
  void Save();

  QSettings& store_;
  QList<QStringList> entries_;
};

}  // namespace quorvane::desktop

#pragma once

#include <QAbstractListModel>
#include <QString>
#include <vector>

namespace quorvane::desktop {

/// Names of which a few letters choose some: the rows of a palette, the best first.
class PaletteRows final : public QAbstractListModel {
 public:
  struct Entry {
    QString name;
    QString detail;  ///< where it is, shown beside the name
  };
  static constexpr int DetailRole = Qt::UserRole;
  static constexpr int kMost = 500;  ///< rows at a time

  explicit PaletteRows(std::vector<Entry> entries, QObject* parent = nullptr);

  /// All, in their order, for no letters.
  void Choose(const QString& letters);
  /// How many fit, those that are not shown included.
  int Fitting() const { return fitting_; }
  int CountOfAll() const { return static_cast<int>(entries_.size()); }
  /// 0-based index into the entries.
  std::size_t EntryOf(int row) const { return shown_[static_cast<std::size_t>(row)]; }

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  std::vector<Entry> entries_;
  std::vector<std::size_t> shown_;
  int fitting_ = 0;
};

}  // namespace quorvane::desktop

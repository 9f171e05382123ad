#include "desktop/navigate/PaletteRows.h"

#include <algorithm>
#include <utility>

#include "desktop/navigate/LetterMatch.h"

namespace quorvane::desktop {

PaletteRows::PaletteRows(std::vector<Entry> entries, QObject* parent)
    : QAbstractListModel(parent), entries_(std::move(entries)) {
  Choose({});
}

void PaletteRows::Choose(const QString& letters) {
  beginResetModel();
  std::vector<std::pair<int, std::size_t>> fitting;  // best first: the higher mark, then the earlier entry
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const int mark = letters.isEmpty() ? 1 : LetterMatch(letters, entries_[i].name);
    if (mark > 0) fitting.emplace_back(-mark, i);
  }
  fitting_ = static_cast<int>(fitting.size());
  const auto end = fitting.begin() + std::min(kMost, fitting_);
  std::partial_sort(fitting.begin(), end, fitting.end());
  shown_.clear();
  for (auto at = fitting.begin(); at != end; ++at) shown_.push_back(at->second);
  endResetModel();
}

int PaletteRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant PaletteRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || static_cast<std::size_t>(index.row()) >= shown_.size()) return {};
  const Entry& entry = entries_[EntryOf(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return entry.name;
    case DetailRole:
      return entry.detail;
    case Qt::AccessibleTextRole:
      return QString(entry.name + QLatin1String(", ") + entry.detail);
    default:
      return {};
  }
}

}  // namespace quorvane::desktop

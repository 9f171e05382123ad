#include "desktop/review/ChangeRows.h"

#include <algorithm>

#include "desktop/platform/QtText.h"
#include "desktop/review/ChangeSet.h"
#include "desktop/review/ModuleChanges.h"
#include "workbench/model/Component.h"

namespace quorvane::desktop {

namespace {

constexpr std::int32_t kContext = 2;  // lines above and below a hunk

}  // namespace

ChangeRows::ChangeRows(const ChangeSet& changes, const Texts& texts) : changes_(changes), texts_(texts) {}

void ChangeRows::Fill() {
  beginResetModel();
  rows_.clear();
  components_.clear();
  std::set<const workbench::Component*> folded;
  for (std::uint32_t module = 0; module < changes_.Modules().size(); ++module) {
    const ModuleChanges& changes = *changes_.Modules()[module];
    components_.push_back(changes.TheComponent());
    rows_.push_back({Kind::Module, module, 0, -1, -1, 0});
    if (IsFolded(module)) {
      folded.insert(changes.TheComponent().get());
      continue;
    }
    for (std::uint32_t hunk = 0; hunk < changes.Hunks().size(); ++hunk) AddHunk(module, hunk);
  }
  folded_ = std::move(folded);  // of those that are still there
  endResetModel();
}

/// Lines between two hunks stand below the upper one first; none stands twice.
void ChangeRows::AddHunk(std::uint32_t module, std::uint32_t hunk) {
  const ModuleChanges& changes = *changes_.Modules()[module];
  const auto& hunks = changes.Hunks();
  const workbench::DiffHunk& lines = hunks[hunk];
  const auto add = [&](Kind kind, std::int32_t before, std::int32_t after, std::uint32_t hidden = 0) {
    rows_.push_back({kind, module, hunk, before, after, hidden});
  };
  add(Kind::Hunk, lines.beforeBegin, lines.afterBegin);
  const std::int32_t gapAbove = lines.afterBegin - (hunk > 0 ? hunks[hunk - 1].afterEnd : 0);
  const std::int32_t above = std::clamp(gapAbove - (hunk > 0 ? kContext : 0), 0, kContext);
  for (std::int32_t i = above; i > 0; --i) add(Kind::Context, lines.beforeBegin - i, lines.afterBegin - i);
  for (std::int32_t line = lines.beforeBegin; line < lines.beforeEnd; ++line) add(Kind::Removed, line, -1);
  const auto hidden = static_cast<std::uint32_t>(changes.HiddenLines(hunk).size());
  for (std::uint32_t i = 0; i < hidden; ++i) add(Kind::Hidden, -1, -1, i);
  for (std::int32_t line = lines.afterBegin; line < lines.afterEnd; ++line) add(Kind::Added, -1, line);
  const std::int32_t gapBelow =
      (hunk + 1 < hunks.size() ? hunks[hunk + 1].afterBegin : changes.CountAfter()) - lines.afterEnd;
  for (std::int32_t i = 0; i < std::min(gapBelow, kContext); ++i) {
    add(Kind::Context, lines.beforeEnd + i, lines.afterEnd + i);
  }
}

void ChangeRows::Fold(std::size_t module, bool folded) {
  const auto* component = changes_.Modules()[module]->TheComponent().get();
  if (folded) {
    folded_.insert(component);
  } else {
    folded_.erase(component);
  }
  Fill();
}

bool ChangeRows::IsFolded(std::size_t module) const {
  return folded_.contains(changes_.Modules()[module]->TheComponent().get());
}

ModuleChanges& ChangeRows::ModuleOf(const Row& row) const {
  return *changes_.Modules()[row.module];
}

bool ChangeRows::Partner(const Row& row, QString& text) const {
  if (row.kind != Kind::Removed && row.kind != Kind::Added) return false;
  const ModuleChanges& changes = ModuleOf(row);
  const workbench::DiffHunk& hunk = changes.Hunks()[row.hunk];
  const bool removed = row.kind == Kind::Removed;
  const std::int32_t other =
      removed ? row.before - hunk.beforeBegin + hunk.afterBegin : row.after - hunk.afterBegin + hunk.beforeBegin;
  if (other >= (removed ? hunk.afterEnd : hunk.beforeEnd)) return false;
  text = ToQString(removed ? changes.After(other) : changes.Before(other));
  return true;
}

int ChangeRows::RowOf(const workbench::Component& component, std::size_t hunk) const {
  int found = -1;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const Row& row = rows_[i];
    if (ModuleOf(row).TheComponent().get() != &component) continue;
    if (row.kind == Kind::Module || (row.kind == Kind::Hunk && row.hunk <= hunk)) found = static_cast<int>(i);
  }
  return found;
}

int ChangeRows::NextHunk(int row, int step) const {
  for (row += step; row >= 0 && row < rowCount(); row += step) {
    if (At(row).kind == Kind::Hunk) return row;
  }
  return -1;
}

int ChangeRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QString ChangeRows::Line(const Row& row) const {
  const ModuleChanges& changes = ModuleOf(row);
  switch (row.kind) {
    case Kind::Removed:
      return ToQString(changes.Before(row.before));
    case Kind::Hidden:
      return texts_(Text::ChangesHidden).arg(ToQString(changes.HiddenLines(row.hunk)[row.hidden]));
    default:
      return ToQString(changes.After(row.after));
  }
}

QString ChangeRows::Title(const Row& row) const {
  const ModuleChanges& changes = ModuleOf(row);
  if (row.kind == Kind::Module) return ToQString(changes.TheComponent()->FullName());
  const QString procedure = ToQString(changes.ProcedureOf(row.hunk));
  const QString where = texts_(Text::ChangesLine).arg(row.after + 1);
  return procedure.isEmpty() ? where : procedure + QStringLiteral("  \u00B7  ") + where;
}

/// What is shown and read out; the painter shows the same in parts.
QVariant ChangeRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)) return {};
  const Row& row = At(index.row());
  const bool title = row.kind == Kind::Module || row.kind == Kind::Hunk;
  if (role == Qt::DisplayRole) return title ? Title(row) : Line(row);
  switch (row.kind) {
    case Kind::Module:
      return QStringLiteral("%1 +%2 -%3").arg(Title(row)).arg(ModuleOf(row).Added()).arg(ModuleOf(row).Removed());
    case Kind::Removed:
      return QStringLiteral("- ") + Line(row);
    case Kind::Added:
      return QStringLiteral("+ ") + Line(row);
    default:
      return title ? Title(row) : Line(row);
  }
}

}  // namespace quorvane::desktop

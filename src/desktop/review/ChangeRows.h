#pragma once

#include <QAbstractListModel>
#include <cstdint>
#include <memory>
#include <set>
#include <vector>

#include "desktop/platform/Texts.h"

namespace quorvane {

namespace workbench {
class Component;
}

namespace desktop {

class ChangeSet;
class ModuleChanges;

/// The changes as rows, one line each: a module, then of each hunk its head, the lines around it, and what went and
/// came. The rows of a module that is folded are not there.
class ChangeRows final : public QAbstractListModel {
 public:
  enum class Kind : std::uint8_t { Module, Hunk, Context, Removed, Added, Hidden };

  struct Row {
    Kind kind = Kind::Module;
    std::uint32_t module = 0;  ///< in ChangeSet::Modules
    std::uint32_t hunk = 0;    ///< in ModuleChanges::Hunks; of a module 0
    std::int32_t before = -1;  ///< 0-based line of the file's code; -1: none
    std::int32_t after = -1;   ///< 0-based line of the module; -1: none
    std::uint32_t hidden = 0;  ///< which of the hunk's hidden lines
  };

  /// Both outlive this.
  ChangeRows(const ChangeSet& changes, const Texts& texts);

  /// Makes the rows anew.
  void Fill();
  /// Folds the module of a row, or shows its hunks again.
  void Fold(std::size_t module, bool folded);
  bool IsFolded(std::size_t module) const;

  const Row& At(int row) const { return rows_[static_cast<std::size_t>(row)]; }
  ModuleChanges& ModuleOf(const Row& row) const;
  /// The text of the line that the line of a row was, or became; null where it has none or is no line.
  bool Partner(const Row& row, QString& text) const;
  /// Whose row it is, also when the changes are others than those that the rows were made from.
  std::shared_ptr<workbench::Component> ComponentAt(int row) const { return components_[At(row).module]; }
  /// The row of a hunk's head, or of the module where it has no such hunk any more; -1 without the module.
  int RowOf(const workbench::Component& component, std::size_t hunk) const;
  /// The next hunk's head from `row` on, in one direction; -1 when there is none.
  int NextHunk(int row, int step) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  void AddHunk(std::uint32_t module, std::uint32_t hunk);
  QString Line(const Row& row) const;
  QString Title(const Row& row) const;

  const ChangeSet& changes_;
  const Texts& texts_;
  std::vector<Row> rows_;
  std::vector<std::shared_ptr<workbench::Component>> components_;  ///< of the modules, when the rows were made
  std::set<const workbench::Component*> folded_;
};

}  // namespace desktop
}  // namespace quorvane

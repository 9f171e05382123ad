#pragma once

#include <QIcon>
#include <QWidget>
#include <cstddef>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "base/Event.h"
#include "desktop/files/EncodingScope.h"
#include "vbide/VBIDE.h"

class QLineEdit;
class QMenu;
class QTreeWidget;
class QTreeWidgetItem;

namespace quorvane {

namespace workbench {
class Component;
class Project;
class Workbench;
}  // namespace workbench

namespace desktop {

class Texts;

/// The open group: its projects, and in each the components by kind. Names that are not saved carry a mark; the current
/// project is bold.
class ProjectTree final : public QWidget {
 public:
  /// Both outlive this.
  ProjectTree(workbench::Workbench& workbench, const Texts& texts, QWidget* parent = nullptr);
  ~ProjectTree() override;

  /// Name of the group file; empty when there is none.
  void SetGroup(const QString& name);
  void UpdateTexts();
  /// The modified marks as they are now.
  void UpdateMarks();
  /// Keyboard focus to the first item, unless one is chosen already.
  void TakeFocus();

  QTreeWidget& Tree() { return *tree_; }
  /// Null for the item of a folder or project.
  std::shared_ptr<workbench::Component> ComponentOf(const QTreeWidgetItem* item) const;
  /// The project that an item is, or lies in; null for the group.
  std::shared_ptr<workbench::Project> ProjectOf(const QTreeWidgetItem* item) const;

  /// The user asks for the code of a component.
  Event<workbench::Component&> CodeWanted;
  /// The user asks for a project to be closed.
  Event<const std::shared_ptr<workbench::Project>&> CloseWanted;
  /// A menu of code pages for what an item stands for is to be filled.
  Event<QMenu&, const EncodingScope&> EncodingMenuWanted;

 private:
  void Rebuild();
  void BuildProject(const std::shared_ptr<workbench::Project>& project, QTreeWidgetItem* item);
  void AddComponent(const std::shared_ptr<workbench::Component>& component, QTreeWidgetItem* folder);
  void AskForMark(QTreeWidgetItem& item);
  void UpdateStale();
  void Filter(const QString& text);
  bool FilterItem(QTreeWidgetItem& item, const QString& text);
  void Activate(QTreeWidgetItem* item);
  void ShowMenu(const QPoint& place);
  void AddProjectEntries(QMenu& menu, const std::shared_ptr<workbench::Project>& project);
  void MarkActive();
  /// How many of the projects shown are the first ones of the workbench, in its order; -1 when some are not.
  std::ptrdiff_t SameProjects() const;
  /// Adds what came behind the projects shown; any other change builds the tree anew.
  void FollowProjects();
  void BuildProjects(QTreeWidgetItem* root, std::size_t first);

  workbench::Workbench& workbench_;
  const Texts& texts_;
  QString group_;
  QLineEdit* filter_;
  QTreeWidget* tree_;
  std::vector<std::weak_ptr<workbench::Project>> shown_;
  std::map<vbide::ComponentType, QIcon> icons_;  ///< of the components; drawn once a kind
  std::set<QTreeWidgetItem*> stale_;             ///< items whose module was edited in this turn
  std::map<const QTreeWidgetItem*, std::weak_ptr<workbench::Component>> components_;
  std::map<const QTreeWidgetItem*, std::weak_ptr<workbench::Project>> projects_;
  std::vector<Subscription> modules_;
  Subscription projectsChanged_;
};

}  // namespace desktop
}  // namespace quorvane

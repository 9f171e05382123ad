#include "desktop/shell/ProjectTree.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/platform/Icons.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/Texts.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

namespace {

using vbide::ComponentType;
using workbench::Component;
using workbench::Project;

constexpr std::array kFolders = {Text::FolderForms, Text::FolderModules,   Text::FolderClasses,   Text::FolderControls,
                                 Text::FolderPages, Text::FolderDocuments, Text::FolderDesigners, Text::FolderRelated};

Text FolderTitle(ComponentType type) {
  switch (type) {
    case ComponentType::VBForm:
    case ComponentType::VBMDIForm:
    case ComponentType::MSForm:
      return Text::FolderForms;
    case ComponentType::StdModule:
      return Text::FolderModules;
    case ComponentType::ClassModule:
      return Text::FolderClasses;
    case ComponentType::UserControl:
      return Text::FolderControls;
    case ComponentType::PropPage:
      return Text::FolderPages;
    case ComponentType::DocObject:
      return Text::FolderDocuments;
    case ComponentType::ActiveXDesigner:
      return Text::FolderDesigners;
    case ComponentType::ResFile:
    case ComponentType::RelatedDocument:
      return Text::FolderRelated;
  }
  return Text::FolderRelated;
}

/// The name, and after it the file where that has another one.
QString NameAndFile(const std::u16string& name, const std::string& path, const QString& mark) {
  const QFileInfo file(QString::fromStdString(path));
  const QString shown = ToQString(name);
  const bool alike = shown.compare(file.completeBaseName(), Qt::CaseInsensitive) == 0 || shown == file.fileName();
  return path.empty() || alike ? shown + mark
                               : shown + mark + QLatin1String("  (") + file.fileName() + QLatin1Char(')');
}

QString Label(const Component& component) {
  const bool modified = component.TheModule() && component.TheModule()->Modified();
  return NameAndFile(component.Name(), component.Path(), modified ? QStringLiteral(" \u2022") : QString());
}

}  // namespace

ProjectTree::ProjectTree(workbench::Workbench& workbench, const Texts& texts, QWidget* parent)
    : QWidget(parent), workbench_(workbench), texts_(texts), filter_(new QLineEdit), tree_(new QTreeWidget) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(4, 4, 4, 4);
  layout->setSpacing(4);
  layout->addWidget(filter_);
  layout->addWidget(tree_);
  filter_->setClearButtonEnabled(true);
  tree_->setHeaderHidden(true);
  tree_->setFrameShape(QFrame::NoFrame);
  tree_->setUniformRowHeights(true);
  tree_->setContextMenuPolicy(Qt::CustomContextMenu);
  tree_->setExpandsOnDoubleClick(false);
  connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) { Filter(text); });
  connect(tree_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) { Activate(item); });
  connect(tree_, &QTreeWidget::customContextMenuRequested, this, [this](const QPoint& place) { ShowMenu(place); });
  projectsChanged_ = workbench_.ProjectsChanged.Subscribe([this] { FollowProjects(); });
  UpdateTexts();
}

ProjectTree::~ProjectTree() = default;

void ProjectTree::SetGroup(const QString& name) {
  if (name == group_) return;
  group_ = name;
  Rebuild();
}

void ProjectTree::UpdateTexts() {
  filter_->setPlaceholderText(texts_(Text::TreeFilter));
  filter_->setAccessibleName(texts_(Text::TreeFilter));
  tree_->setAccessibleName(texts_(Text::Projects));
  Rebuild();
}

std::ptrdiff_t ProjectTree::SameProjects() const {
  const auto& projects = workbench_.Projects();
  const auto [shown, now] = std::ranges::mismatch(shown_, projects, {}, [](const auto& weak) { return weak.lock(); });
  return shown == shown_.end() ? now - projects.begin() : -1;
}

void ProjectTree::FollowProjects() {
  const std::ptrdiff_t same = SameProjects();
  if (same < 0) return Rebuild();
  if (static_cast<std::size_t>(same) == workbench_.Projects().size()) return MarkActive();
  BuildProjects(group_.isEmpty() ? tree_->invisibleRootItem() : tree_->topLevelItem(0), static_cast<std::size_t>(same));
}

void ProjectTree::Rebuild() {
  components_.clear();
  projects_.clear();
  modules_.clear();
  stale_.clear();
  tree_->clear();
  QTreeWidgetItem* root = tree_->invisibleRootItem();
  if (!group_.isEmpty()) {
    root = new QTreeWidgetItem(root, {group_});
    root->setIcon(0, Icons::Group());
    root->setExpanded(true);
  }
  BuildProjects(root, 0);
}

void ProjectTree::BuildProjects(QTreeWidgetItem* root, std::size_t first) {
  const auto& projects = workbench_.Projects();
  shown_.assign(projects.begin(), projects.end());
  for (std::size_t i = first; i < projects.size(); ++i) {
    auto* item = new QTreeWidgetItem(root);
    BuildProject(projects[i], item);
    item->setExpanded(true);
  }
  MarkActive();
  Filter(filter_->text());
}

void ProjectTree::BuildProject(const std::shared_ptr<Project>& project, QTreeWidgetItem* item) {
  projects_[item] = project;
  item->setText(0, NameAndFile(project->Name(), project->Path(), QString()));
  item->setIcon(0, Icons::Project());
  item->setToolTip(0, QString::fromStdString(project->Path()));
  for (const Text folder : kFolders) {
    QTreeWidgetItem* folderItem = nullptr;
    for (const auto& component : project->Components()) {
      if (FolderTitle(component->Type()) != folder) continue;
      if (folderItem == nullptr) {
        folderItem = new QTreeWidgetItem(item, {texts_(folder)});
        folderItem->setIcon(0, Icons::Folder());
      }
      AddComponent(component, folderItem);
    }
    if (folderItem == nullptr) continue;
    folderItem->sortChildren(0, Qt::AscendingOrder);
    folderItem->setExpanded(true);
  }
}

void ProjectTree::AddComponent(const std::shared_ptr<Component>& component, QTreeWidgetItem* folder) {
  auto* item = new QTreeWidgetItem(folder, {Label(*component)});
  const auto [icon, isNew] = icons_.try_emplace(component->Type());
  if (isNew) icon->second = Icons::Component(component->Type());
  item->setIcon(0, icon->second);
  item->setToolTip(0, QString::fromStdString(component->Path()));
  components_[item] = component;
  if (!component->TheModule()) return;
  modules_.push_back(component->TheModule()->Changed.Subscribe([this, item] { AskForMark(*item); }));
}

std::shared_ptr<Component> ProjectTree::ComponentOf(const QTreeWidgetItem* item) const {
  const auto found = components_.find(item);
  return found != components_.end() ? found->second.lock() : nullptr;
}

std::shared_ptr<Project> ProjectTree::ProjectOf(const QTreeWidgetItem* item) const {
  for (; item != nullptr; item = item->parent()) {
    const auto found = projects_.find(item);
    if (found != projects_.end()) return found->second.lock();
  }
  return nullptr;
}

/// Once for all the edits of a turn.
void ProjectTree::AskForMark(QTreeWidgetItem& item) {
  if (stale_.empty()) QTimer::singleShot(0, this, [this] { UpdateStale(); });
  stale_.insert(&item);
}

void ProjectTree::UpdateStale() {
  for (QTreeWidgetItem* item : std::exchange(stale_, {})) {
    if (const auto component = ComponentOf(item)) item->setText(0, Label(*component));
  }
}

void ProjectTree::UpdateMarks() {
  for (QTreeWidgetItemIterator at(tree_); *at != nullptr; ++at) {
    if (const auto component = ComponentOf(*at)) (*at)->setText(0, Label(*component));
  }
}

void ProjectTree::TakeFocus() {
  if (tree_->currentItem() == nullptr) tree_->setCurrentItem(tree_->topLevelItem(0));
  tree_->setFocus();
}

void ProjectTree::MarkActive() {
  for (const auto& [item, project] : projects_) {
    auto* shown = const_cast<QTreeWidgetItem*>(item);
    QFont font = tree_->font();
    font.setBold(project.lock() == workbench_.ActiveVBProject());
    shown->setFont(0, font);
  }
}

void ProjectTree::Filter(const QString& text) {
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) FilterItem(*tree_->topLevelItem(i), text);
}

/// A folder stays while anything in it does; false when the item is hidden.
bool ProjectTree::FilterItem(QTreeWidgetItem& item, const QString& text) {
  bool wanted = item.childCount() == 0 && (text.isEmpty() || item.text(0).contains(text, Qt::CaseInsensitive));
  for (int i = 0; i < item.childCount(); ++i) wanted = FilterItem(*item.child(i), text) || wanted;
  item.setHidden(!wanted);
  return wanted;
}

void ProjectTree::Activate(QTreeWidgetItem* item) {
  if (const auto component = ComponentOf(item)) {
    if (component->TheModule()) CodeWanted.Raise(*component);
  } else if (item != nullptr) {
    item->setExpanded(!item->isExpanded());
  }
}

void ProjectTree::ShowMenu(const QPoint& place) {
  QTreeWidgetItem* item = tree_->itemAt(place);
  if (item == nullptr) return;
  const auto project = ProjectOf(item);
  const auto component = ComponentOf(item);
  QMenu menu(this);
  if (component && component->TheModule()) {
    menu.addAction(texts_(Text::TreeViewCode), this, [this, item] { Activate(item); });
    menu.addSeparator();
  }
  if (!component || component->TheModule()) {
    QMenu* pages = menu.addMenu(texts_(Text::FileEncoding));
    EncodingMenuWanted.Raise(*pages, EncodingScope{project, component});
    menu.addSeparator();
  }
  if (project) AddProjectEntries(menu, project);
  menu.exec(tree_->viewport()->mapToGlobal(place));
}

void ProjectTree::AddProjectEntries(QMenu& menu, const std::shared_ptr<Project>& project) {
  QAction* active =
      menu.addAction(texts_(Text::TreeSetActive), this, [this, project] { workbench_.SetActiveProject(project); });
  active->setEnabled(project != workbench_.ActiveVBProject());
  menu.addAction(texts_(Text::TreeCloseProject), this, [this, project] { CloseWanted.Raise(project); });
}

}  // namespace quorvane::desktop

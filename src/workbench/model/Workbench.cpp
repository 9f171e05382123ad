#include "workbench/model/Workbench.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "workbench/model/HostAddins.h"
#include "workbench/model/HostCommandBars.h"
#include "workbench/model/HostEvents.h"
#include "workbench/model/HostWindow.h"
#include "workbench/model/HostWindows.h"
#include "workbench/model/Pane.h"

namespace quorvane::workbench {

Workbench::Workbench(const CodePage& page)
    : page_(page),
      desk_(std::make_shared<Desk>()),
      mainWindow_(std::make_shared<HostWindow>(desk_->NewHandle(), u"Quorvane", true)),
      commandBars_(std::make_shared<HostCommandBars>()),
      events_(std::make_shared<HostEvents>()),
      windows_(std::make_shared<HostWindows>(desk_)),
      addins_(std::make_shared<HostAddins>()),
      paneChanged_(desk_->ActivePaneChanged.Subscribe([this] { FollowActivePane(); })) {
  commandBars_->Add(u"Add-Ins");
}

Workbench::~Workbench() {
  paneChanged_.Reset();
  for (const std::shared_ptr<Project>& project : projects_) project->Detach();
}

std::shared_ptr<vbide::CodePane> Workbench::ActiveCodePane() const {
  return desk_->ActivePane();
}

std::shared_ptr<vbide::VBProject> Workbench::ActiveVBProject() const {
  return active_;
}

std::vector<std::shared_ptr<vbide::VBProject>> Workbench::VBProjects() const {
  return {projects_.begin(), projects_.end()};
}

std::shared_ptr<vbide::CommandBars> Workbench::CommandBars() {
  return commandBars_;
}

std::shared_ptr<vbide::Windows> Workbench::Windows() {
  return windows_;
}

std::shared_ptr<vbide::Events> Workbench::Events() {
  return events_;
}

std::shared_ptr<vbide::Addins> Workbench::Addins() {
  return addins_;
}

std::shared_ptr<vbide::Window> Workbench::MainWindow() {
  return mainWindow_;
}

std::shared_ptr<Project> Workbench::NewProject(std::u16string name, std::string path) const {
  return Project::Make(std::move(name), std::move(path), desk_, page_);
}

void Workbench::Add(std::shared_ptr<Project> project) {
  projects_.push_back(std::move(project));
  if (!active_) active_ = projects_.back();
  ProjectsChanged.Raise();
}

void Workbench::Close(const std::shared_ptr<Project>& project) {
  const std::shared_ptr<Project> closing = project;  // the caller's reference may be the one that goes
  if (std::erase(projects_, closing) == 0) return;
  if (active_ == closing) active_ = projects_.empty() ? nullptr : projects_.front();
  closing->Detach();
  ProjectsChanged.Raise();
}

void Workbench::SetActiveProject(const std::shared_ptr<Project>& project) {
  if (std::ranges::find(projects_, project) == projects_.end()) {
    RaiseError(ErrorNumber::InvalidProcedureCall, u"The project is not open");
  }
  if (project == active_) return;
  active_ = project;
  ProjectsChanged.Raise();
}

void Workbench::SetActivePane(const std::shared_ptr<vbide::CodePane>& pane) {
  Deref(pane).Show();
}

void Workbench::FollowActivePane() {
  const std::shared_ptr<Pane> pane = desk_->ActivePane();
  const std::shared_ptr<vbide::CodeModule> module = pane ? pane->CodeModule() : nullptr;
  const std::shared_ptr<vbide::VBComponent> component = module ? module->Parent() : nullptr;
  const std::shared_ptr<vbide::VBComponents> list = component ? component->Collection() : nullptr;
  const std::shared_ptr<vbide::VBProject> owner = list ? list->Parent() : nullptr;
  const auto found = std::ranges::find(projects_, owner);
  if (found != projects_.end()) SetActiveProject(*found);
}

}  // namespace quorvane::workbench

#include "workbench/model/Project.h"

#include <utility>

#include "workbench/model/ComponentList.h"

namespace quorvane::workbench {

Project::Project(std::u16string name, std::string path, std::shared_ptr<Desk> desk, const CodePage& page)
    : name_(std::move(name)), path_(std::move(path)), desk_(std::move(desk)), page_(page) {}

std::shared_ptr<Project> Project::Make(std::u16string name, std::string path, std::shared_ptr<Desk> desk,
                                       const CodePage& page) {
  std::shared_ptr<Project> project(new Project(std::move(name), std::move(path), std::move(desk), page));
  project->components_ = std::make_shared<ComponentList>(project);
  return project;
}

std::shared_ptr<vbide::VBComponents> Project::VBComponents() const {
  return components_;
}

const std::vector<std::shared_ptr<Component>>& Project::Components() const {
  return components_->Components();
}

std::shared_ptr<Component> Project::Add(Component::Parts parts) {
  std::shared_ptr<Component> component = Component::Make(std::move(parts), desk_, page_, components_);
  components_->Add(component);
  return component;
}

void Project::Detach() {
  components_->Detach();
}

}  // namespace quorvane::workbench

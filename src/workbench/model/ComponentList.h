#pragma once

#include <memory>
#include <vector>

#include "vbide/VBIDE.h"

namespace quorvane::workbench {

class Component;
class Project;

/// The components of one project, in the order in which its file lists them.
class ComponentList final : public vbide::VBComponents {
 public:
  explicit ComponentList(const std::shared_ptr<Project>& project) : project_(project) {}

  std::shared_ptr<vbide::VBProject> Parent() const override;
  std::vector<std::shared_ptr<vbide::VBComponent>> Items() const override;

  const std::vector<std::shared_ptr<Component>>& Components() const { return components_; }
  void Add(std::shared_ptr<Component> component) { components_.push_back(std::move(component)); }

  /// Cuts the ways back to the owners, for a project that is closed.
  void Detach();

 private:
  std::weak_ptr<Project> project_;
  std::vector<std::shared_ptr<Component>> components_;
};

}  // namespace quorvane::workbench

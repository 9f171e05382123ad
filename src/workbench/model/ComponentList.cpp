#include "workbench/model/ComponentList.h"

#include "workbench/model/Component.h"
#include "workbench/model/Project.h"

namespace quorvane::workbench {

std::shared_ptr<vbide::VBProject> ComponentList::Parent() const {
  return project_.lock();
}

std::vector<std::shared_ptr<vbide::VBComponent>> ComponentList::Items() const {
  return {components_.begin(), components_.end()};
}

void ComponentList::Detach() {
  project_.reset();
  for (const std::shared_ptr<Component>& component : components_) component->Detach();
}

}  // namespace quorvane::workbench

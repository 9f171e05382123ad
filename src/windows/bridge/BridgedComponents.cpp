#include "windows/bridge/BridgedComponents.h"

#include "windows/bridge/BridgedComponent.h"
#include "windows/bridge/BridgedProject.h"
#include "windows/bridge/HostCollection.h"

namespace quorvane::bridge {

std::u16string BridgedComponents::NameOf(const com::LateBound& object, com::ClassIds& classes) {
  const com::LateBound project(object.Call(u"Parent").ToObject(), classes);
  return project ? BridgedProject::NameOf(project, classes) : std::u16string();
}

std::shared_ptr<vbide::VBProject> BridgedComponents::Parent() const {
  return TheOne<BridgedProject>(u"Parent");
}

std::vector<std::shared_ptr<vbide::VBComponent>> BridgedComponents::Items() const {
  std::vector<std::shared_ptr<vbide::VBComponent>> items;
  const HostCollection all(Remote());
  const std::int32_t count = all.Count();
  for (std::int32_t i = 1; i <= count; ++i) {
    if (auto item = Link().TheWrapper<BridgedComponent>([&] { return all.Item(i); })) items.push_back(std::move(item));
  }
  return items;
}

}  // namespace quorvane::bridge

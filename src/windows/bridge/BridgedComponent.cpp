#include "windows/bridge/BridgedComponent.h"

#include "windows/bridge/BridgedComponents.h"
#include "windows/bridge/BridgedModule.h"

namespace quorvane::bridge {

std::u16string BridgedComponent::NameOf(const com::LateBound& object, com::ClassIds& classes) {
  const com::LateBound owner(object.Call(u"Collection").ToObject(), classes);
  return BridgedComponents::NameOf(owner, classes) + u"\n" + object.Call(u"Name").ToText();
}

std::shared_ptr<vbide::CodeModule> BridgedComponent::CodeModule() const {
  return TheOne<BridgedModule>(u"CodeModule");
}

std::shared_ptr<vbide::VBComponents> BridgedComponent::Collection() const {
  return TheOne<BridgedComponents>(u"Collection");
}

}  // namespace quorvane::bridge

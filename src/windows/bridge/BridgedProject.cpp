#include "windows/bridge/BridgedProject.h"

#include "windows/bridge/BridgedComponents.h"

namespace quorvane::bridge {

std::shared_ptr<vbide::VBComponents> BridgedProject::VBComponents() const {
  return TheOne<BridgedComponents>(u"VBComponents");
}

}  // namespace quorvane::bridge

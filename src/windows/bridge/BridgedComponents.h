#pragma once

#include "vbide/VBIDE.h"
#include "windows/bridge/HostObject.h"

namespace quorvane::bridge {

class BridgedComponents final : public vbide::VBComponents, public HostObject {
 public:
  using HostObject::HostObject;

  /// That of the project.
  static std::u16string NameOf(const com::LateBound& object, com::ClassIds& classes);

  std::shared_ptr<vbide::VBProject> Parent() const override;
  std::vector<std::shared_ptr<vbide::VBComponent>> Items() const override;
};

}  // namespace quorvane::bridge

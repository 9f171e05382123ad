#pragma once

#include "vbide/VBIDE.h"
#include "windows/bridge/HostObject.h"

namespace quorvane::bridge {

class BridgedProject final : public vbide::VBProject, public HostObject {
 public:
  using HostObject::HostObject;

  static std::u16string NameOf(const com::LateBound& object, com::ClassIds&) { return object.Call(u"Name").ToText(); }

  std::u16string Name() const override { return Remote().Call(u"Name").ToText(); }
  std::shared_ptr<vbide::VBComponents> VBComponents() const override;
};

}  // namespace quorvane::bridge

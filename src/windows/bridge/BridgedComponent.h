#pragma once

#include "vbide/VBIDE.h"
#include "windows/bridge/HostObject.h"

namespace quorvane::bridge {

class BridgedComponent final : public vbide::VBComponent, public HostObject {
 public:
  using HostObject::HostObject;

  /// "project\ncomponent"
  static std::u16string NameOf(const com::LateBound& object, com::ClassIds& classes);

  std::u16string Name() const override { return Remote().Call(u"Name").ToText(); }
  vbide::ComponentType Type() const override {
    return static_cast<vbide::ComponentType>(Remote().Call(u"Type").ToInt32());
  }
  std::shared_ptr<vbide::CodeModule> CodeModule() const override;
  std::shared_ptr<vbide::VBComponents> Collection() const override;
};

}  // namespace quorvane::bridge

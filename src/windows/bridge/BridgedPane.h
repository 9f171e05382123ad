#pragma once

#include "vbide/VBIDE.h"
#include "windows/bridge/HostObject.h"

namespace quorvane::bridge {

class BridgedPane final : public vbide::CodePane, public HostObject {
 public:
  using HostObject::HostObject;

  /// That of its module.
  static std::u16string NameOf(const com::LateBound& object, com::ClassIds& classes);

  std::shared_ptr<vbide::CodeModule> CodeModule() const override;
  std::shared_ptr<vbide::Window> Window() const override;
  vbide::Selection GetSelection() const override;
  void SetSelection(const vbide::Selection& selection) override;
  void Show() override;
};

}  // namespace quorvane::bridge

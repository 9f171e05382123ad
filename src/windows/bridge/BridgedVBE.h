#pragma once

#include "vbide/VBIDE.h"
#include "windows/bridge/HostObject.h"

namespace quorvane::bridge {

/// The host itself.
class BridgedVBE final : public vbide::VBE, public HostObject {
 public:
  using HostObject::HostObject;

  std::shared_ptr<vbide::CodePane> ActiveCodePane() const override;
  std::shared_ptr<vbide::VBProject> ActiveVBProject() const override;
  std::vector<std::shared_ptr<vbide::VBProject>> VBProjects() const override;
  std::shared_ptr<vbide::CommandBars> CommandBars() override;
  std::shared_ptr<vbide::Windows> Windows() override;
  std::shared_ptr<vbide::Events> Events() override;
  std::shared_ptr<vbide::Addins> Addins() override;
  std::shared_ptr<vbide::Window> MainWindow() override;
};

}  // namespace quorvane::bridge

#pragma once

#include <optional>

#include "vbide/VBIDE.h"
#include "windows/bridge/HostObject.h"
#include "windows/com/EventConnection.h"

// The host's menus: the bars, one bar, an entry of it, and the source of its clicks.
namespace quorvane::bridge {

class BridgedControl final : public vbide::CommandBarControl, public HostObject {
 public:
  using HostObject::HostObject;

  void SetCaption(const std::u16string& caption) override { Remote().Put(u"Caption", com::Variant::Of(caption)); }
  void SetVisible(bool visible) override { Remote().Put(u"Visible", com::Variant::Of(visible)); }
  bool Enabled() const override { return Remote().Call(u"Enabled").ToBool(); }
  void Delete() override { Remote().Call(u"Delete"); }
};

class BridgedCommandBar final : public vbide::CommandBar, public HostObject {
 public:
  using HostObject::HostObject;

  std::shared_ptr<vbide::CommandBarControl> AddControl(std::int32_t type) override;
};

class BridgedCommandBars final : public vbide::CommandBars, public HostObject {
 public:
  using HostObject::HostObject;

  /// A host that raises for a name it does not know has no such bar, and one that gave no bars at all has none.
  std::shared_ptr<vbide::CommandBar> Item(std::u16string_view name) override;
};

/// Listens to the host's source and raises Click of its own.
class BridgedCommandBarEvents final : public vbide::CommandBarEvents, public HostObject {
 public:
  BridgedCommandBarEvents(std::shared_ptr<HostLink> link, const com::ComPtr<IDispatch>& source,
                          std::shared_ptr<vbide::CommandBarControl> control);

  void Drop() override;

 private:
  void Clicked(com::DispatchCall& call);

  std::shared_ptr<vbide::CommandBarControl> control_;
  std::optional<com::EventConnection> connection_;
};

class BridgedEvents final : public vbide::Events, public HostObject {
 public:
  using HostObject::HostObject;

  /// Error 91 for nothing, 5 for a control that is none of this host.
  std::shared_ptr<vbide::CommandBarEvents> CommandBarEvents(
      const std::shared_ptr<vbide::CommandBarControl>& control) override;
};

}  // namespace quorvane::bridge

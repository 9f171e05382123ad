#pragma once

#include "vbide/VBIDE.h"
#include "windows/bridge/HostObject.h"

namespace quorvane::bridge {

class BridgedWindow final : public vbide::Window, public HostObject {
 public:
  using HostObject::HostObject;

  std::u16string Caption() const override { return Remote().Call(u"Caption").ToText(); }
  void SetCaption(const std::u16string& caption) override { Remote().Put(u"Caption", com::Variant::Of(caption)); }
  bool Visible() const override { return Remote().Call(u"Visible").ToBool(); }
  void SetVisible(bool visible) override { Remote().Put(u"Visible", com::Variant::Of(visible)); }
  void SetWindowState(std::int32_t state) override { Remote().Put(u"WindowState", com::Variant::Of(state)); }
  void Close() override { Remote().Call(u"Close"); }
};

}  // namespace quorvane::bridge

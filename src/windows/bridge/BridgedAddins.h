#pragma once

#include "vbide/VBIDE.h"
#include "windows/bridge/HostObject.h"

// The host's records of its add-ins, and the tool windows that it makes for them.
namespace quorvane::bridge {

class BridgedAddIn final : public vbide::AddIn, public HostObject {
 public:
  using HostObject::HostObject;

  std::u16string ProgId() const override { return Remote().Call(u"ProgId").ToText(); }
};

class BridgedAddins final : public vbide::Addins, public HostObject {
 public:
  using HostObject::HostObject;

  std::shared_ptr<vbide::AddIn> Item(std::u16string_view progId) override;
};

class BridgedWindows final : public vbide::Windows, public HostObject {
 public:
  using HostObject::HostObject;

  /// The document is what the link's finder finds behind the object that the host hands out.
  std::shared_ptr<vbide::Window> CreateToolWindow(const std::shared_ptr<vbide::AddIn>& addIn,
                                                  std::u16string_view progId, const std::u16string& caption,
                                                  std::u16string_view guidPosition,
                                                  std::shared_ptr<vbide::Document>& document) override;
};

}  // namespace quorvane::bridge

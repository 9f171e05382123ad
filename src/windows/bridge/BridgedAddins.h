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

  /// A host may enter an add-in into its list only when that has answered its connection: the record that came with
  /// the connection stands in for it.
  std::shared_ptr<vbide::AddIn> Item(std::u16string_view progId) override;

 private:
  std::shared_ptr<vbide::AddIn> OwnRecord(std::u16string_view progId) const;
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

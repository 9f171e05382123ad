#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vbide/VBIDE.h"
#include "workbench/model/HostCommandBar.h"

namespace quorvane::workbench {

/// The menus to which add-ins add their entries, by name, upper and lower case alike.
class HostCommandBars final : public vbide::CommandBars {
 public:
  /// The bar of that name, new or as added before.
  std::shared_ptr<HostCommandBar> Add(const std::u16string& name);
  void Remove(std::u16string_view name);

  std::shared_ptr<vbide::CommandBar> Item(std::u16string_view name) override { return Look(name); }

  const std::vector<std::shared_ptr<HostCommandBar>>& Bars() const { return bars_; }

 private:
  std::shared_ptr<HostCommandBar> Look(std::u16string_view name) const;

  std::vector<std::shared_ptr<HostCommandBar>> bars_;
};

}  // namespace quorvane::workbench

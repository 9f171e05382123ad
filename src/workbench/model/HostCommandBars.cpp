#include "workbench/model/HostCommandBars.h"

#include "base/Text.h"

namespace quorvane::workbench {

std::shared_ptr<HostCommandBar> HostCommandBars::Look(std::u16string_view name) const {
  for (const auto& bar : bars_) {
    if (EqualsNoCaseAscii(bar->Name(), name)) return bar;
  }
  return nullptr;
}

std::shared_ptr<HostCommandBar> HostCommandBars::Add(const std::u16string& name) {
  if (auto known = Look(name)) return known;
  return bars_.emplace_back(std::make_shared<HostCommandBar>(name));
}

void HostCommandBars::Remove(std::u16string_view name) {
  std::erase_if(bars_, [&](const auto& bar) { return EqualsNoCaseAscii(bar->Name(), name); });
}

}  // namespace quorvane::workbench

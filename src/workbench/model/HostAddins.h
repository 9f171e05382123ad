#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vbide/VBIDE.h"

namespace quorvane::workbench {

/// The add-ins that the workbench knows, by ProgID, upper and lower case alike.
class HostAddins final : public vbide::Addins {
 public:
  /// The record of that ProgID, new or as registered before.
  std::shared_ptr<vbide::AddIn> Register(const std::u16string& progId);

  std::shared_ptr<vbide::AddIn> Item(std::u16string_view progId) override;

 private:
  std::shared_ptr<vbide::AddIn> Look(std::u16string_view progId) const;

  std::vector<std::shared_ptr<vbide::AddIn>> addins_;
};

}  // namespace quorvane::workbench

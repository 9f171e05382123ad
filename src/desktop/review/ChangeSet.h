#pragma once

#include <QTimer>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "base/Event.h"

namespace quorvane {

namespace workbench {
class Component;
class Module;
class Workbench;
}  // namespace workbench

namespace desktop {

class ModuleChanges;

/// All open modules that differ from their files, in the order of the project tree. Follows each edit, a moment after
/// it, for as long as somebody looks.
class ChangeSet {
 public:
  /// The workbench outlives this.
  explicit ChangeSet(workbench::Workbench& workbench);
  ~ChangeSet();

  /// Whether anybody looks; without that nothing is compared.
  void Follow(bool wanted);
  /// Everything as it is now, at once.
  void Update();

  const std::vector<std::shared_ptr<ModuleChanges>>& Modules() const { return modules_; }

  Event<> Updated;

 private:
  void Listen();

  workbench::Workbench& workbench_;
  bool wanted_ = false;
  QTimer soon_;
  std::vector<std::shared_ptr<ModuleChanges>> modules_;
  std::vector<Subscription> edits_;
  Subscription projects_;
};

}  // namespace desktop
}  // namespace quorvane

#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/Event.h"

namespace quorvane {

namespace workbench {
class Component;
class Module;
class Workbench;
}  // namespace workbench

namespace desktop {

/// What whole tasks of an add-in changed, so that each can be taken back and done again in all modules at once. The
/// texts stay with the history of each module; this knows which states a task led from and to.
class TaskHistory {
 public:
  /// What one task did to one module.
  struct Change {
    std::weak_ptr<workbench::Component> component;
    std::uint64_t before = 0;  ///< states of the module's text
    std::uint64_t after = 0;
  };
  struct Task {
    std::vector<Change> changes;
    std::int32_t lines = 0;  ///< that differ
  };
  using ComponentList = std::vector<std::shared_ptr<workbench::Component>>;

  /// The workbench outlives this.
  explicit TaskHistory(workbench::Workbench& workbench) : workbench_(workbench) {}

  /// Around a task. Tasks do not nest; one that changed nothing leaves no trace.
  void Begin();
  void Done();

  /// The last task, or the last one that was taken back; null when there is none whose modules are open.
  const Task* LastDone();
  const Task* LastUndone();
  /// Modules of such a task that are no longer as it, or its undo, left them.
  ComponentList EditedSince(const Task& task, bool undone) const;

  /// Takes the last task back, or does it again, in the modules that are as it left them; the others stay.
  void Undo();
  void Redo();

  Event<> Changed;

 private:
  static bool IsOpen(const Task& task);
  void Walk(const Task& task, bool undo) const;

  workbench::Workbench& workbench_;
  bool running_ = false;
  std::map<const workbench::Component*, std::uint64_t> states_;   ///< at the begin of the task
  std::map<const workbench::Component*, std::u16string> edited_;  ///< the texts of those that differed from files
  std::vector<Task> done_;
  std::vector<Task> undone_;
};

}  // namespace desktop
}  // namespace quorvane

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/text/LineDiff.h"

namespace quorvane {

namespace workbench {
class Component;
class Module;
class SourceFile;
class TurnClock;
}  // namespace workbench

namespace desktop {

/// How the code of one module differs from what its file holds: hunks over the lines of code, which is what the user
/// sees and what can be put back. The lines that the host hides are named by the hunk that they follow.
class ModuleChanges {
 public:
  explicit ModuleChanges(std::shared_ptr<workbench::Component> component);

  const std::shared_ptr<workbench::Component>& TheComponent() const { return component_; }
  workbench::Module& TheModule() const;

  /// Reads the module again, where it or its file is another than last time. Gives whether it was.
  bool Update();

  /// As of the last Update.
  const std::vector<workbench::DiffHunk>& Hunks() const { return hunks_; }
  /// Lines of the file's code and of the module, 0-based, as the hunks count them.
  std::u16string_view Before(std::int32_t line) const { return before_[static_cast<std::size_t>(line)]; }
  std::u16string_view After(std::int32_t line) const { return after_[static_cast<std::size_t>(line)]; }
  std::int32_t CountBefore() const { return static_cast<std::int32_t>(before_.size()); }
  std::int32_t CountAfter() const { return static_cast<std::int32_t>(after_.size()); }
  std::int32_t Added() const;
  std::int32_t Removed() const;
  /// The hidden lines of the file after the lines that a hunk removes, without line ends.
  std::vector<std::u16string> HiddenLines(std::size_t hunk) const;
  /// Name of the procedure that a hunk begins in; empty in the declarations.
  std::u16string ProcedureOf(std::size_t hunk) const;

  /// Puts the lines of the file back, as one step of undo, if the module is still as it was at the last Update; else
  /// nothing happens and false comes back.
  bool Revert(std::size_t hunk, workbench::TurnClock& turns) const;
  bool RevertAll(workbench::TurnClock& turns) const;

 private:
  void PutBack(const workbench::DiffHunk& hunk) const;
  bool IsCurrent() const;

  std::shared_ptr<workbench::Component> component_;
  std::shared_ptr<const workbench::SourceFile> saved_;  ///< that before_ was read from
  std::uint64_t revision_ = 0;                          ///< that after_ was read from
  std::vector<std::u16string> before_;
  std::u16string text_;  ///< that after_ points into
  std::vector<std::u16string_view> after_;
  std::vector<workbench::DiffHunk> hunks_;
};

}  // namespace desktop
}  // namespace quorvane

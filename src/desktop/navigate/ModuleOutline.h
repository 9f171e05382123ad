#pragma once

#include <QString>
#include <cstdint>
#include <vector>

namespace quorvane::workbench {
class Module;
struct Procedure;
}  // namespace quorvane::workbench

namespace quorvane::desktop {

/// What the boxes above a code window list: the procedures of a module, each with the object whose event or member it
/// is. Objects are the module's own (Form, Class …), its controls, its variables WithEvents and what it implements.
class ModuleOutline {
 public:
  struct Entry {
    QString object;              ///< empty for a procedure of none, which stands under "(General)"
    QString label;               ///< what the box of procedures shows
    std::int32_t startLine = 1;  ///< 1-based; comments above the header included

    bool operator==(const Entry&) const = default;
  };

  ModuleOutline() = default;
  /// As the module is now.
  explicit ModuleOutline(const workbench::Module& module);

  /// In the order of their lines.
  const std::vector<Entry>& Entries() const { return entries_; }
  /// The entry that holds this line; null in the declarations.
  const Entry* AtLine(std::int32_t line) const;

  /// The line (1-based) with the words Sub, Function or Property, below comments and blank lines.
  static std::int32_t HeaderLine(const workbench::Module& module, const workbench::Procedure& procedure);
  /// The same for the procedure that holds `line`; `line` itself outside of any.
  static std::int32_t HeaderLine(const workbench::Module& module, std::int32_t line);

 private:
  std::vector<Entry> entries_;
};

}  // namespace quorvane::desktop

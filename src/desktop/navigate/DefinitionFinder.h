#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::workbench {
class Component;
class Module;
class Project;
class Workbench;
}  // namespace quorvane::workbench

namespace quorvane::desktop {

/// Where a name is declared.
struct Definition {
  std::shared_ptr<workbench::Component> component;
  std::int32_t line = 1;    ///< 1-based
  std::int32_t column = 1;  ///< 1-based, in UTF-16 units; that of the name
  std::int32_t length = 0;  ///< of the name; 0 for a component, which is declared by its file
};

/// Finds the declarations of a name: in the procedure, then the module, then the project, then the other projects. The
/// first of these that declares it counts, with all its declarations.
class DefinitionFinder {
 public:
  /// Outlives this.
  explicit DefinitionFinder(const workbench::Workbench& workbench) : workbench_(workbench) {}

  /// `line` is where the name stands in `from`. `owner` is what stands before a dot in front of it, empty for none or
  /// for one that is no name, which `dotted` tells.
  std::vector<Definition> Find(const workbench::Component& from, std::int32_t line, std::u16string_view name,
                               std::u16string_view owner, bool dotted) const;

 private:
  using Found = std::vector<Definition>;
  using ComponentPtr = std::shared_ptr<workbench::Component>;

  static void FindLocal(const ComponentPtr& component, std::int32_t line, std::u16string_view name, Found& found);
  static void FindMembers(const ComponentPtr& component, std::u16string_view name, bool hiddenToo, Found& found);
  Found FindOwned(const ComponentPtr& from, std::u16string_view name, std::u16string_view owner) const;
  std::vector<ComponentPtr> Others(const ComponentPtr& from, bool sameProject) const;
  ComponentPtr Shared(const workbench::Component& component) const;
  ComponentPtr Named(const ComponentPtr& from, std::u16string_view name) const;

  const workbench::Workbench& workbench_;
};

}  // namespace quorvane::desktop

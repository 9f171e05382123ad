#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "vbide/VBIDE.h"

namespace quorvane {
class CodePage;
}

namespace quorvane::workbench {

class Workbench;

/// Makes a group from strings in one expression:
///
///     auto vbe = Group{}.Project(u"P").Module(u"M", u"Sub A()\r\nEnd Sub").Class(u"C", u"").Build(page);
///
/// A component goes into the project named last; without one into "Project1". The text is the code alone, as the host
/// shows it; the header that a file of its kind has is put before it. The first project is the active one.
class GroupBuilder {
 public:
  GroupBuilder& Project(const std::u16string& name);
  /// The project named last becomes the active one.
  GroupBuilder& Active();

  GroupBuilder& Module(const std::u16string& name, std::u16string_view code);
  GroupBuilder& Class(const std::u16string& name, std::u16string_view code);
  GroupBuilder& Form(const std::u16string& name, std::u16string_view code);
  /// Any type. Types 4 and 10 have no code: `code` plays no part then.
  GroupBuilder& Component(const std::u16string& name, vbide::ComponentType type, std::u16string_view code);
  GroupBuilder& Resource(const std::u16string& name);
  GroupBuilder& RelatedDocument(const std::u16string& name);
  /// A component whose file holds exactly these bytes, for headers, hidden lines and odd line ends.
  GroupBuilder& File(const std::u16string& name, vbide::ComponentType type, std::string bytes);

  /// A host without its "Add-Ins" bar.
  GroupBuilder& NoAddInsBar();

  /// `page` outlives the workbench. Raises error 5 for code that it lacks a character of.
  std::unique_ptr<Workbench> Build(const CodePage& page) const;

 private:
  struct PlannedComponent {
    std::u16string name;
    vbide::ComponentType type = vbide::ComponentType::StdModule;
    std::u16string code;
    std::string bytes;  ///< used instead of `code` when `raw`
    bool raw = false;
  };
  struct PlannedProject {
    std::u16string name;
    std::vector<PlannedComponent> components;
  };

  static std::string Bytes(const PlannedComponent& component, const CodePage& page);
  PlannedProject& Last();

  std::vector<PlannedProject> projects_;
  std::size_t active_ = 0;
  bool addInsBar_ = true;
};

/// Short, for the expressions of tests.
using Group = GroupBuilder;

}  // namespace quorvane::workbench

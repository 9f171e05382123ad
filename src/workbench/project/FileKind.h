#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "vbide/VBIDE.h"

namespace quorvane::workbench {

/// What a file is by its name or, where that tells nothing, by how it begins.
struct FileKind {
  enum class Role { ProjectGroup, Project, Component };

  Role role = Role::Component;
  vbide::ComponentType type = vbide::ComponentType::StdModule;  ///< of a component

  /// No value when the extension is none of the usual ones. Case plays no part.
  static std::optional<FileKind> OfName(std::string_view path);
  /// Anything that is neither group, project, class nor form is a standard module.
  static FileKind OfContent(std::string_view bytes);
};

/// The type that the header of a form file tells: VBForm, VBMDIForm, or MSForm for a form of another library.
/// UserControl, PropPage and DocObject for files of those kinds; no value when no object begins there.
std::optional<vbide::ComponentType> TypeOfObject(std::string_view header);

/// False for resource files and related documents.
constexpr bool HoldsCode(vbide::ComponentType type) {
  return type != vbide::ComponentType::ResFile && type != vbide::ComponentType::RelatedDocument;
}

}  // namespace quorvane::workbench

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vbide/VBIDE.h"
#include "workbench/model/Component.h"

namespace quorvane::workbench {

class ComponentList;
class Desk;

/// One open project.
class Project final : public vbide::VBProject {
 public:
  /// `path` is the project file on disk, empty when there is none. `page` outlives the project's modules.
  static std::shared_ptr<Project> Make(std::u16string name, std::string path, std::shared_ptr<Desk> desk,
                                       const CodePage& page);

  std::u16string Name() const override { return name_; }
  std::shared_ptr<vbide::VBComponents> VBComponents() const override;

  const std::string& Path() const { return path_; }
  const std::vector<std::shared_ptr<Component>>& Components() const;
  std::shared_ptr<Component> Add(Component::Parts parts);

  /// Cuts the ways back from the parts of a project that is closed.
  void Detach();

 private:
  Project(std::u16string name, std::string path, std::shared_ptr<Desk> desk, const CodePage& page);

  std::u16string name_;
  std::string path_;
  std::shared_ptr<Desk> desk_;
  const CodePage& page_;
  std::shared_ptr<ComponentList> components_;
};

}  // namespace quorvane::workbench

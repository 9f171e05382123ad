#pragma once

#include <memory>
#include <string>

#include "native/files/FileStamp.h"
#include "vbide/VBIDE.h"

namespace quorvane {
class CodePage;
}

namespace quorvane::workbench {

class ComponentList;
class Desk;
class Module;
class SourceFile;

/// One component of a project: a module with its own text, or a file without code (types 4 and 10).
class Component final : public vbide::VBComponent {
 public:
  /// What a component is made from.
  struct Parts {
    std::u16string name;
    vbide::ComponentType type = vbide::ComponentType::StdModule;
    /// The file as found on disk; relative to the working directory unless it is absolute. Empty: not on disk.
    std::string path;
    bool listedAbsolute = false;             ///< its project lists it by an absolute path
    native::FileStamp stamp;                 ///< of that file when it was read
    std::shared_ptr<const SourceFile> file;  ///< what it held; null for a component without code
    const CodePage* page = nullptr;          ///< in which it is written; null: that of the workbench
  };

  /// `page` is that of the workbench, by which columns are counted; it outlives the component's module, as that of the
  /// file does.
  static std::shared_ptr<Component> Make(Parts parts, const std::shared_ptr<Desk>& desk, const CodePage& page,
                                         const std::shared_ptr<ComponentList>& list);

  std::u16string Name() const override { return parts_.name; }
  vbide::ComponentType Type() const override { return parts_.type; }
  std::shared_ptr<vbide::CodeModule> CodeModule() const override;
  std::shared_ptr<vbide::VBComponents> Collection() const override;

  const std::shared_ptr<Module>& TheModule() const { return module_; }
  const std::string& Path() const { return parts_.path; }
  void SetPath(std::string path) {
    parts_.path = std::move(path);
    parts_.listedAbsolute = false;
  }
  bool ListedAbsolute() const { return parts_.listedAbsolute; }
  const native::FileStamp& Stamp() const { return parts_.stamp; }
  void SetStamp(const native::FileStamp& stamp) { parts_.stamp = stamp; }

  /// Reads the file's bytes as last read or saved in another code page; see Module. The name comes anew with them.
  void Reopen(const CodePage& page);

  std::u16string FileName() const override;

  /// "Project1.Form1", the form in which messages name a component.
  std::u16string FullName() const;

  /// Cuts the ways back to the owners, for a project that is closed; the module's pane leaves the desk.
  void Detach();

 private:
  explicit Component(Parts parts) : parts_(std::move(parts)) {}
  std::shared_ptr<vbide::CodePane> MakePane(const CodePage& page) const;

  Parts parts_;
  std::shared_ptr<Desk> desk_;
  std::shared_ptr<Module> module_;
  std::weak_ptr<ComponentList> list_;
};

}  // namespace quorvane::workbench

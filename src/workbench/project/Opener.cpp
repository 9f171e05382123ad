#include "workbench/project/Opener.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "base/Error.h"
#include "base/FilePath.h"
#include "base/Text.h"
#include "native/files/FileAccess.h"
#include "native/files/FileBytes.h"
#include "platform/CodePage.h"
#include "workbench/project/FileKind.h"
#include "workbench/project/FileLoader.h"
#include "workbench/project/FolderFiles.h"
#include "workbench/project/GroupFile.h"
#include "workbench/project/KeyLines.h"
#include "workbench/project/PathFinder.h"
#include "workbench/project/ProjectFile.h"

namespace quorvane::workbench {

// Opening goes in three steps. First the lists of files are read and every path is found; what is missing becomes a
// warning, and what the user named himself an error. Then all modules are loaded at once, each file a single time, on
// all cores. Last the projects are built in their order. Until the last step the workbench is as it was, so that a
// failure before leaves no half of a project in it.

namespace {

using vbide::ComponentType;

[[noreturn]] void RaiseUnreadable(const std::string& path, int error) {
  RaiseError(ErrorNumber::PathFileAccess, FromUtf8(path + ": " + native::ErrnoText(error)));
}

const std::string kNoGroup = "no group file";
const std::string kNoProject = "no project file";

/// Whether bytes can be a group or a project: both are lines with a key. One that lists nothing yet is one, too, and so
/// is one with a damaged line: zero bytes count only where no key is one that is known.
bool IsListing(std::string_view bytes, const CodePage& page) {
  if (bytes.empty() || bytes.starts_with("VBGROUP")) return true;
  const auto lines = ReadKeyLines(bytes, page);
  if (bytes.find('\0') == bytes.npos) return !lines.empty();
  constexpr std::u16string_view kUsual[] = {u"Type", u"Name", u"Module", u"Class", u"Form", u"Project", u"Reference"};
  return std::ranges::any_of(lines, [&](const KeyLine& line) {
    return std::ranges::any_of(kUsual, [&](std::u16string_view usual) { return EqualsNoCaseAscii(line.key, usual); });
  });
}

/// The file itself, whatever way leads to it.
std::string Identity(const std::string& path) {
  std::string real = native::RealPath(path);
  return real.empty() ? path : real;
}

std::u16string Stem(const std::string& path) {
  const std::string name = FileNameOf(path);
  const std::size_t dot = name.rfind('.');
  return FromUtf8(dot == 0 ? name : name.substr(0, dot));
}

/// One call for each of the three steps above, in this order.
class Opener {
 public:
  Opener(Workbench& workbench, const OpenChoice& choice) : workbench_(workbench), choice_(choice) {
    for (const auto& project : workbench.Projects()) known_.insert(Identity(project->Path()));
  }

  void AddArgument(const std::string& argument);
  /// After the last argument.
  void Plan();
  void Load(const LoadProgress& progress);
  void Build();

  std::vector<std::string> TakeWarnings() { return std::move(warnings_); }

 private:
  struct PlannedComponent {
    ProjectFile::Entry entry;
    std::string path;
    bool argument = false;  ///< named by the user: it must be readable
  };
  struct PlannedProject {
    std::u16string name;
    std::string path;
    std::vector<PlannedComponent> components;
    std::set<std::string> paths;  ///< of the components
  };

  /// ShownPath of an argument that is no folder. Where the way to a file says nothing but its folder and its name, its
  /// folder is asked for once.
  std::string Shown(const std::string& argument);
  void AddFolder(const std::string& folder);
  /// The bytes of a group or project found in a folder; tells of one that cannot be read, or is none, by `refusal`.
  std::optional<native::FileBytes> ReadFound(const std::string& path, const std::string& refusal);
  void AddGroup(const std::string& path, std::string_view bytes);
  /// Nothing happens when it is open already.
  void AddProject(const std::string& path, std::string_view bytes);
  void AddComponent(PlannedProject& project, const ProjectFile::Entry& entry);
  void AddModule(const std::string& path, ComponentType type, bool argument);
  /// The module files of folders that no project lists.
  void AddFoundModules();
  const CodePage& PageOf(const std::string& project, const std::string& module) const;
  PathFinder& FinderOf(const CodePage& page) { return finders_.try_emplace(&page, page).first->second; }
  bool Wanted(const std::string& path) const { return !choice_.wanted || choice_.wanted(path); }
  void BuildComponent(Project& project, const PlannedProject& planned, const PlannedComponent& component);
  Component::Parts MakeParts(const PlannedProject& project, const PlannedComponent& component,
                             const LoadedFile& loaded) const;
  std::u16string FreeProjectName() const;
  void Warn(const std::string& listingFile, std::u16string_view listed, const std::string& words);

  Workbench& workbench_;
  const OpenChoice& choice_;
  std::map<const CodePage*, PathFinder> finders_;
  std::map<std::string, std::string> shownFolders_;
  std::vector<std::string> warnings_;
  std::vector<PlannedProject> projects_;
  std::optional<std::size_t> modules_;     ///< place in projects_ of the project that holds the module files
  std::set<std::string> known_;            ///< project files that are open or planned
  std::string startUp_;                    ///< identity of the project file; empty when there is none yet
  std::vector<std::string> foundModules_;  ///< module files in folders
  std::map<std::string, LoadedFile> loaded_;
};

void Opener::Warn(const std::string& listingFile, std::u16string_view listed, const std::string& words) {
  warnings_.push_back(listingFile + ": " + ToUtf8(listed) + ": " + words);
}

const CodePage& Opener::PageOf(const std::string& project, const std::string& module) const {
  const CodePage* page = choice_.pageOf ? choice_.pageOf(project, module) : nullptr;
  return page != nullptr ? *page : workbench_.ThePage();
}

void Opener::AddArgument(const std::string& argument) {
  std::error_code unknown;
  if (std::filesystem::is_directory(FilePath(argument), unknown)) return AddFolder(argument);
  const std::string path = Shown(argument);
  std::optional<FileKind> kind = FileKind::OfName(path);
  if (kind && kind->role == FileKind::Role::Component) return AddModule(path, kind->type, true);
  const native::FileBytes file = native::ReadFileBytes(path);
  if (file.error != 0) RaiseUnreadable(argument, file.error);
  if (!kind) kind = FileKind::OfContent(file.bytes);
  const bool isGroup = kind->role == FileKind::Role::ProjectGroup;
  if (kind->role != FileKind::Role::Component && !IsListing(file.bytes, PageOf({}, {}))) {
    RaiseError(ErrorNumber::PathFileAccess, FromUtf8(argument + ": " + (isGroup ? kNoGroup : kNoProject)));
  }
  switch (kind->role) {
    case FileKind::Role::ProjectGroup:
      return AddGroup(path, file.bytes);
    case FileKind::Role::Project:
      return AddProject(path, file.bytes);
    case FileKind::Role::Component:
      return AddModule(path, kind->type, true);
  }
}

std::string Opener::Shown(const std::string& argument) {
  const std::string name = FileNameOf(argument);
  const bool simple = name.size() > 1 && name.size() < argument.size() && argument.find("..") == argument.npos &&
                      argument.find_first_of("\\:") == argument.npos;
  if (!simple) return ShownPath(argument);
  const auto [known, isNew] = shownFolders_.try_emplace(FolderOf(argument));
  if (isNew) known->second = ShownPath(known->first);
  const std::string& folder = known->second;
  return folder.empty() || folder.ends_with('/') ? folder + name : folder + '/' + name;
}

void Opener::AddFolder(const std::string& folder) {
  FolderFiles files = FolderFiles::Under(ShownPath(folder));
  std::ranges::move(files.unreadable, std::back_inserter(warnings_));
  for (const std::string& path : files.groups) {
    if (const auto file = ReadFound(path, kNoGroup)) AddGroup(path, file->bytes);
  }
  for (const std::string& path : files.projects) {
    if (known_.contains(Identity(path))) continue;
    if (const auto file = ReadFound(path, kNoProject)) AddProject(path, file->bytes);
  }
  std::ranges::move(files.modules, std::back_inserter(foundModules_));
}

std::optional<native::FileBytes> Opener::ReadFound(const std::string& path, const std::string& refusal) {
  native::FileBytes file = native::ReadFileBytes(path);
  const bool fits = file.error == 0 && IsListing(file.bytes, PageOf({}, {}));
  if (fits) return file;
  warnings_.push_back(path + ": " + (file.error != 0 ? native::ErrnoText(file.error) : refusal));
  return std::nullopt;
}

void Opener::AddGroup(const std::string& path, std::string_view bytes) {
  const CodePage& page = PageOf({}, {});
  const GroupFile group = GroupFile::Parse(bytes, page);
  for (std::size_t i = 0; i < group.projects.size(); ++i) {
    const std::u16string& listed = group.projects[i];
    const std::string found = FinderOf(page).Find(FolderOf(path), listed);
    if (found.empty()) {
      Warn(path, listed, "not found");
      continue;
    }
    const native::FileBytes file = native::ReadFileBytes(found);
    if (file.error != 0) {
      Warn(path, listed, native::ErrnoText(file.error));
      continue;
    }
    if (!IsListing(file.bytes, page)) {
      Warn(path, listed, kNoProject);
      continue;
    }
    AddProject(found, file.bytes);
    if (group.startUp == i && startUp_.empty()) startUp_ = Identity(found);
  }
}

void Opener::AddProject(const std::string& path, std::string_view bytes) {
  if (!known_.insert(Identity(path)).second) return;
  const ProjectFile file = ProjectFile::Parse(bytes, PageOf(path, {}));
  PlannedProject project;
  project.name = file.name.empty() ? Stem(path) : file.name;
  project.path = path;
  for (const ProjectFile::Entry& entry : file.entries) AddComponent(project, entry);
  projects_.push_back(std::move(project));
}

void Opener::AddComponent(PlannedProject& project, const ProjectFile::Entry& entry) {
  std::string found = FinderOf(PageOf(project.path, {})).Find(FolderOf(project.path), entry.path);
  if (found.empty()) return Warn(project.path, entry.path, "not found");
  if (!Wanted(found)) return;
  // The host takes a file into a project once.
  if (!project.paths.insert(found).second) return Warn(project.path, entry.path, "listed twice, opened once");
  project.components.push_back({entry, std::move(found)});
}

void Opener::AddModule(const std::string& path, ComponentType type, bool argument) {
  if (!Wanted(path)) return;
  if (!modules_) {
    modules_ = projects_.size();
    projects_.emplace_back();
  }
  PlannedProject& project = projects_[*modules_];
  if (!project.paths.insert(path).second) return;
  project.components.push_back({{type, {}, FromUtf8(path)}, path, argument});
}

void Opener::AddFoundModules() {
  if (foundModules_.empty()) return;
  std::set<std::string> listed;
  for (const PlannedProject& project : projects_) {
    for (const PlannedComponent& component : project.components) listed.insert(Identity(component.path));
  }
  for (const std::string& path : foundModules_) {
    if (listed.insert(Identity(path)).second) AddModule(path, FileKind::OfName(path)->type, false);
  }
}

void Opener::Plan() {
  AddFoundModules();
  if (!choice_.byPath) return;
  std::ranges::stable_sort(projects_, {}, &PlannedProject::path);
  for (PlannedProject& project : projects_) std::ranges::stable_sort(project.components, {}, &PlannedComponent::path);
}

void Opener::Load(const LoadProgress& progress) {
  std::vector<std::string> paths;
  for (const PlannedProject& project : projects_) {
    for (const PlannedComponent& component : project.components) {
      if (HoldsCode(component.entry.type)) paths.push_back(component.path);
    }
  }
  std::ranges::sort(paths);
  paths.erase(std::unique(paths.begin(), paths.end()), paths.end());
  std::vector<LoadedFile> files = LoadFiles(paths, progress, choice_.sieve);
  for (std::size_t i = 0; i < paths.size(); ++i) {
    loaded_.emplace_hint(loaded_.end(), std::move(paths[i]), std::move(files[i]));
  }
  for (const PlannedProject& project : projects_) {
    for (const PlannedComponent& component : project.components) {
      if (!component.argument) continue;
      const auto loaded = loaded_.find(component.path);
      const int error = loaded != loaded_.end() ? loaded->second.error : native::ReadFileBytes(component.path).error;
      if (error != 0) RaiseUnreadable(component.path, error);
    }
  }
}

void Opener::Build() {
  std::shared_ptr<Project> startUp;
  for (const PlannedProject& planned : projects_) {
    const std::u16string name = planned.name.empty() ? FreeProjectName() : planned.name;
    const std::shared_ptr<Project> project = workbench_.NewProject(name, planned.path);
    for (const PlannedComponent& component : planned.components) BuildComponent(*project, planned, component);
    workbench_.Add(project);
    if (!startUp_.empty() && Identity(planned.path) == startUp_) startUp = project;
  }
  if (startUp) workbench_.SetActiveProject(startUp);
}

void Opener::BuildComponent(Project& project, const PlannedProject& planned, const PlannedComponent& component) {
  if (!HoldsCode(component.entry.type)) {
    Component::Parts parts;
    parts.name = FromUtf8(FileNameOf(component.path));
    parts.type = component.entry.type;
    parts.path = component.path;
    project.Add(std::move(parts));
    return;
  }
  const LoadedFile& loaded = loaded_.at(component.path);
  if (loaded.error != 0) {
    if (!planned.path.empty()) return Warn(planned.path, component.entry.path, native::ErrnoText(loaded.error));
    return warnings_.push_back(component.path + ": " + native::ErrnoText(loaded.error));
  }
  const std::string_view head = loaded.source->Kept();  // a byte order mark is no header, so it is kept
  if (head.starts_with("\xFF\xFE") || head.starts_with("\xFE\xFF"))
    warnings_.push_back(component.path + ": is UTF-16 by its byte order mark; no match will be found in it");
  project.Add(MakeParts(planned, component, loaded));
}

Component::Parts Opener::MakeParts(const PlannedProject& project, const PlannedComponent& component,
                                   const LoadedFile& loaded) const {
  Component::Parts parts;
  parts.type = component.entry.type;
  if (parts.type == ComponentType::VBForm) {
    const std::optional<ComponentType> told = TypeOfObject(loaded.source->Header());
    if (told == ComponentType::VBMDIForm || told == ComponentType::MSForm) parts.type = *told;
  }
  parts.page = &PageOf(project.path, component.path);
  parts.page->Decode(loaded.source->Name(), parts.name);
  if (parts.name.empty()) parts.name = component.entry.name;
  if (parts.name.empty()) parts.name = Stem(component.path);
  parts.path = component.path;
  parts.listedAbsolute = !component.argument && IsAbsolutePath(component.entry.path);
  parts.stamp = loaded.stamp;
  parts.file = loaded.source;
  return parts;
}

std::u16string Opener::FreeProjectName() const {
  for (std::int64_t number = 1;; ++number) {
    std::u16string name = u"Project" + ToText(number);
    const auto takenBy = [&](const auto& names) { return EqualsNoCaseAscii(names, name); };
    const bool taken = std::ranges::any_of(projects_, takenBy, &PlannedProject::name) ||
                       std::ranges::any_of(workbench_.Projects(), takenBy, &Project::Name);
    if (!taken) return name;
  }
}

}  // namespace

std::vector<std::string> OpenFilesInto(Workbench& workbench, const std::vector<std::string>& files,
                                       const LoadProgress& progress, const OpenChoice& choice) {
  Opener opener(workbench, choice);
  for (const std::string& file : files) opener.AddArgument(file);
  opener.Plan();
  opener.Load(progress);
  opener.Build();
  return opener.TakeWarnings();
}

OpenedGroup OpenFiles(const std::vector<std::string>& files, const CodePage& page, const OpenChoice& choice) {
  OpenedGroup group;
  group.workbench = std::make_unique<Workbench>(page);
  group.warnings = OpenFilesInto(*group.workbench, files, {}, choice);
  return group;
}

}  // namespace quorvane::workbench

#include "workbench/save/GroupSaver.h"

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <tuple>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "native/files/AtomicFile.h"
#include "native/files/FileAccess.h"
#include "native/files/FileBytes.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/PathFinder.h"
#include "workbench/save/FileSaver.h"
#include "workbench/save/UnifiedDiff.h"

namespace quorvane::workbench {

namespace {

using ComponentPtr = std::shared_ptr<Component>;
using FileId = std::tuple<std::string, std::uint64_t, std::uint64_t>;  ///< path when not on disk, device, inode

/// A component whose text composes to other bytes than its file held.
struct Edited {
  ComponentPtr component;
  ComposedFile file;
};

/// One file to be written, and what to do with its components afterwards.
struct Target {
  PlannedFile file;
  ComponentPtr source;                   ///< the edited component that the bytes come from
  std::vector<ComponentPtr> components;  ///< all that show this file, the source among them
};

ComposedFile ComposeNamed(const Component& component) {
  try {
    return component.TheModule()->Compose();
  } catch (const Error& e) {
    throw Error(e.Number, FromUtf8(component.Path()) + u": " + e.Description, e.Source, e.HelpFile, e.HelpContext);
  }
}

std::vector<Edited> FindEdited(const std::vector<ComponentPtr>& twins) {
  std::vector<Edited> edited;
  for (const ComponentPtr& component : twins) {
    if (!component->TheModule()->Modified()) continue;
    if (component->Path().empty()) {
      RaiseError(ErrorNumber::InvalidProcedureCall, component->FullName() + u": there is no file to save it in");
    }
    ComposedFile file = ComposeNamed(*component);
    if (file.bytes != component->TheModule()->Saved()->Bytes()) edited.push_back({component, std::move(file)});
  }
  return edited;
}

void RefuseConflict(const std::vector<Edited>& edited) {
  for (const Edited& other : edited) {
    if (other.file.bytes == edited.front().file.bytes) continue;
    RaiseError(ErrorNumber::InvalidProcedureCall,
               FromUtf8(other.component->Path()) + u": " + edited.front().component->FullName() + u" and " +
                   other.component->FullName() + u" show this file and were edited differently");
  }
}

std::string RealPath(const Component& component) {
  std::string real = native::RealPath(component.Path());
  return real.empty() ? component.Path() : real;
}

/// One target for each name of the file: a save gives bytes to a name, so that hard links become files of their own.
void AddTargets(const std::vector<ComponentPtr>& twins, std::vector<Target>& targets) {
  std::vector<Edited> edited = FindEdited(twins);
  if (edited.empty()) return;
  RefuseConflict(edited);
  std::map<std::string, std::vector<ComponentPtr>> byName;
  for (const ComponentPtr& component : twins) byName[RealPath(*component)].push_back(component);
  for (Edited& first : edited) {
    auto named = byName.extract(RealPath(*first.component));
    if (named.empty()) continue;  // planned with an earlier component
    Target target;
    target.file.path = first.component->Path();
    target.file.before = first.component->TheModule()->Saved()->Bytes();
    target.file.after = std::move(first.file.bytes);
    target.file.droppedHiddenLines = std::move(first.file.droppedHiddenLines);
    target.source = first.component;
    target.components = std::move(named.mapped());
    targets.push_back(std::move(target));
  }
}

/// The components of each file, in the order of the first of them.
std::vector<std::vector<ComponentPtr>> FindFiles(const Workbench& workbench) {
  std::vector<std::vector<ComponentPtr>> files;
  std::map<FileId, std::size_t> places;
  for (const auto& project : workbench.Projects()) {
    for (const ComponentPtr& component : project->Components()) {
      if (!component->TheModule()) continue;
      const native::FileStamp& stamp = component->Stamp();
      const std::string unknown = component->Path().empty() ? ToUtf8(component->FullName()) : std::string();
      const auto [place, isNew] = places.try_emplace({unknown, stamp.device, stamp.inode}, files.size());
      if (isNew) files.emplace_back();
      files[place->second].push_back(component);
    }
  }
  return files;
}

std::vector<Target> FindTargets(const Workbench& workbench) {
  std::vector<Target> targets;
  for (const auto& twins : FindFiles(workbench)) AddTargets(twins, targets);
  return targets;
}

/// The components that show the file of `component`, itself among them.
std::vector<ComponentPtr> TwinsOf(const Workbench& workbench, const Component& component) {
  for (auto& twins : FindFiles(workbench)) {
    if (std::ranges::find(twins, &component, &ComponentPtr::get) != twins.end()) return std::move(twins);
  }
  return {};
}

/// Makes the text of `module` that of `source`, editing only the run of lines that differs.
void TakeOver(Module& module, const Module& source) {
  const auto lineOf = [](const Module& text, std::int32_t line) { return text.Lines(line, 1); };
  const std::int32_t before = module.CountOfLines();
  const std::int32_t after = source.CountOfLines();
  const std::int32_t shorter = std::min(before, after);
  std::int32_t head = 0;
  while (head < shorter && lineOf(module, head + 1) == lineOf(source, head + 1)) ++head;
  std::int32_t tail = 0;
  while (tail < shorter - head && lineOf(module, before - tail) == lineOf(source, after - tail)) ++tail;
  if (before > head + tail) module.DeleteLines(head + 1, before - head - tail);
  if (after > head + tail) module.InsertLines(head + 1, source.Lines(head + 1, after - head - tail));
}

/// The host keeps the old text in a component that shows a file which another one has saved; saving it later would
/// then take the other's work back without a word. So it takes over what the file now holds.
void Settle(const Target& target, const native::FileStamp& stamp) {
  const auto saved = std::make_shared<const SourceFile>(target.file.after);
  for (const ComponentPtr& component : target.components) {
    if (component != target.source) TakeOver(*component->TheModule(), *target.source->TheModule());
    component->TheModule()->MarkSaved(saved);
    component->SetStamp(stamp);
  }
}

}  // namespace

std::vector<PlannedFile> PlanSave(const Workbench& workbench) {
  std::vector<PlannedFile> files;
  for (Target& target : FindTargets(workbench)) files.push_back(std::move(target.file));
  return files;
}

std::vector<std::string> FilesOutside(const Workbench& workbench, const Component* component) {
  std::vector<Target> targets;
  if (component == nullptr) targets = FindTargets(workbench);
  if (component != nullptr) AddTargets(TwinsOf(workbench, *component), targets);
  std::set<std::string> folders;
  for (const auto& project : workbench.Projects()) {
    if (!project->Path().empty()) folders.insert(FolderOf(native::RealPath(project->Path())) + "/");
  }
  std::vector<std::string> outside;
  for (const Target& target : targets) {
    if (!std::ranges::all_of(target.components, &Component::ListedAbsolute, &ComponentPtr::operator*)) continue;
    const std::string real = RealPath(*target.source);
    const auto holds = [&real](const std::string& folder) { return real.starts_with(folder); };
    if (std::ranges::none_of(folders, holds)) outside.push_back(target.file.path);
  }
  return outside;
}

namespace {

std::vector<SavedFile> SaveTargets(Workbench& workbench, const std::vector<Target>& targets) {
  std::vector<FileToSave> files;
  for (const Target& target : targets) files.push_back({target.file.path, target.file.after, target.source->Stamp()});
  if (files.empty()) return {};
  const std::vector<native::FileStamp> stamps = SaveFiles(files);

  workbench.Turns().Next();  // what twins take over is no part of the user's last edit
  std::vector<SavedFile> saved;
  for (std::size_t i = 0; i < targets.size(); ++i) {
    Settle(targets[i], stamps[i]);
    const PlannedFile& file = targets[i].file;
    const LineCounts counts = CountChangedLines(file.before, file.after);
    saved.push_back({file.path, counts.added, counts.removed, file.droppedHiddenLines});
  }
  workbench.Turns().Next();
  return saved;
}

}  // namespace

std::vector<SavedFile> SaveGroup(Workbench& workbench) {
  return SaveTargets(workbench, FindTargets(workbench));
}

std::vector<SavedFile> SaveFileOf(Workbench& workbench, const Component& component) {
  std::vector<Target> targets;
  AddTargets(TwinsOf(workbench, component), targets);
  return SaveTargets(workbench, targets);
}

void RestoreFileOf(Workbench& workbench, const Component& component) {
  const std::vector<ComponentPtr> twins = TwinsOf(workbench, component);
  native::WriteFileWhole(component.Path(), component.TheModule()->Saved()->Bytes());
  const auto stamp = native::FileStamp::Of(component.Path());
  if (!stamp) return;
  for (const ComponentPtr& twin : twins) twin->SetStamp(*stamp);
}

void SaveFileAs(Workbench& workbench, const Component& component, const std::string& path) {
  const std::vector<ComponentPtr> twins = TwinsOf(workbench, component);
  const std::vector<Edited> edited = FindEdited(twins);
  if (!edited.empty()) RefuseConflict(edited);
  Target target;
  target.source = edited.empty() ? twins.front() : edited.front().component;
  target.file.after = ComposeNamed(*target.source).bytes;
  target.components = twins;
  native::WriteFileWhole(path, target.file.after);
  for (const ComponentPtr& twin : twins) twin->SetPath(path);
  workbench.Turns().Next();
  Settle(target, native::FileStamp::Of(path).value_or(component.Stamp()));
  workbench.Turns().Next();
}

void ReloadFileOf(Workbench& workbench, const Component& component) {
  native::FileBytes read = native::ReadFileBytes(component.Path());
  if (read.error != 0)
    RaiseError(ErrorNumber::PathFileAccess, FromUtf8(component.Path() + ": " + native::ErrnoText(read.error)));
  const auto held = std::make_shared<const SourceFile>(std::move(read.bytes));
  TurnClock ownTurns;
  workbench.Turns().Next();
  for (const ComponentPtr& twin : TwinsOf(workbench, component)) {
    const Module now(held, twin->TheModule()->Page(), ownTurns);
    TakeOver(*twin->TheModule(), now);
    twin->TheModule()->MarkSaved(held);
    twin->SetStamp(read.stamp);
  }
  workbench.Turns().Next();
}

}  // namespace quorvane::workbench

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane::workbench {

class Component;
class Workbench;

/// A file that a save would change.
struct PlannedFile {
  std::string path;
  std::string before;                           ///< its bytes as they were read or last saved
  std::string after;                            ///< its bytes to be
  std::vector<std::string> droppedHiddenLines;  ///< in the bytes of the file, without line ends
};

/// What a save would do, writing nothing: the files whose bytes change, in the order of their first component.
///
/// Raises an error that names the file when the code page lacks a character of its text, when components of one file
/// were edited to different texts, and when an edited component has no file.
std::vector<PlannedFile> PlanSave(const Workbench& workbench);

/// Those of the files that a save of `component`, or of all, would write and that a project lists by an absolute path
/// outside the folders of all open projects: a project of a stranger may name any file of the machine.
std::vector<std::string> FilesOutside(const Workbench& workbench, const Component* component = nullptr);

/// What a save did to one file.
struct SavedFile {
  std::string path;
  std::int32_t added = 0;  ///< lines of the file that were not in it before
  std::int32_t removed = 0;
  std::vector<std::string> droppedHiddenLines;
};

/// Saves all edited components: all files or, when an error is raised before the first is replaced, none. A file that
/// several components show is saved once; a component of it that was not edited takes over the text that was saved, as
/// one step of its undo.
std::vector<SavedFile> SaveGroup(Workbench& workbench);
/// The same for the file of one component alone.
std::vector<SavedFile> SaveFileOf(Workbench& workbench, const Component& component);

/// Writes the file of `component`, which is gone from disk, again with what it last held; edits are still to be saved.
/// Raises as WriteFileWhole does.
void RestoreFileOf(Workbench& workbench, const Component& component);

/// Writes the text of `component` to another file, at `path` (UTF-8), which is from now on its file, and that of all
/// others that showed the old one. Project files still list the old name. Raises as a save does.
void SaveFileAs(Workbench& workbench, const Component& component, const std::string& path);

/// Makes the text of `component` and of all others that show its file what the file holds now, as one step of their
/// undo. Edits that were not saved are thus set aside, not lost. Raises error 75, naming the file, when it cannot be
/// read.
void ReloadFileOf(Workbench& workbench, const Component& component);

}  // namespace quorvane::workbench

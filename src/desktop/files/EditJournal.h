#pragma once

#include <string>
#include <utility>
#include <vector>

namespace quorvane {

namespace workbench {
class Workbench;
}  // namespace workbench

namespace desktop {

/// The edits that no file holds yet, kept in a file of their own in a folder of such journals: one for each process,
/// written whole as often as there is reason to. The files of the modules are never touched. A later process finds the
/// journals of those that have ended, and makes the edits anew. All paths are UTF-8.
class EditJournal {
 public:
  /// The text of one edited module.
  struct Edit {
    std::string path;     ///< absolute, of the module's file
    std::u16string name;  ///< "Project1.Form1"
    std::u16string base;  ///< names the bytes of the file that were edited
    std::u16string text;  ///< all lines, joined by CR LF
  };
  struct Found {
    std::string journal;              ///< its file
    std::vector<std::string> opened;  ///< what the user had opened
    std::vector<Edit> edits;          ///< one or more
  };
  struct Outcome {
    std::vector<Edit> made;   ///< as one step of undo each
    std::vector<Edit> newer;  ///< those of them whose file held something else when they were first made
    std::vector<Edit> left;   ///< whose module is not open, or has edits that are not saved
  };

  /// `folder` is made when it is needed.
  explicit EditJournal(std::string folder) : folder_(std::move(folder)) {}

  /// Writes the edits of all open modules in the place of what this process wrote before; without any removes it.
  /// Raises as WriteFileWhole does, or for a folder that cannot be made.
  void Write(const workbench::Workbench& workbench, const std::vector<std::string>& opened) const;
  /// Removes what this process wrote.
  void Remove() const;

  /// The journals of processes that have surely ended. One that cannot be understood is passed over and stays.
  std::vector<Found> Left() const;
  /// Makes the edits of a journal in the open modules, whose files stay as they are.
  static Outcome BringBack(workbench::Workbench& workbench, const Found& found);
  /// Removes a journal whose edits are not needed any more.
  static void Delete(const Found& found);

 private:
  std::string Own() const;

  std::string folder_;
};

}  // namespace desktop
}  // namespace quorvane

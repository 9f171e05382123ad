#pragma once

#include <string>
#include <vector>

#include "native/files/FileStamp.h"

namespace quorvane::workbench {

/// What is to be done with a save of several files that was cut short.
enum class Recovery {
  Finish,  ///< the new files take their places
  GoBack,  ///< the old files come back
  Keep,    ///< each file stays as it is now
};

/// The record of a save of several files, kept beside them from before the first is replaced until the last one is:
/// whoever finds it later can say which files are new and which old, and make them all the one or the other. In each
/// folder of the files lies a copy, with its names relative to the folder. All paths are UTF-8.
class SaveJournal {
 public:
  struct Entry {
    std::string target;  ///< absolute
    std::string fresh;   ///< the new file, as long as it is not in place
    std::string old;     ///< a second name of the file as it was; empty where the file system gives none
    native::FileStamp freshStamp;
    native::FileStamp oldStamp;

    bool Replaced() const;
    /// The old file is gone from its place and the new one is not there yet.
    bool Lost() const;
  };

  explicit SaveJournal(std::vector<Entry> entries) : entries_(std::move(entries)) {}

  /// The journal in a folder, empty for the working directory; one without entries when there is none. Raises error 75
  /// for one that cannot be read or understood.
  static SaveJournal In(const std::string& folder);

  bool Empty() const { return entries_.empty(); }
  const std::vector<Entry>& Entries() const { return entries_; }
  /// Whether the process that wrote it may still be at work.
  bool UnderWay() const { return underWay_; }
  /// Some files are replaced and some are not, or one is at its place neither old nor new.
  bool IsHalf() const;
  /// "2 of 5 files are saved; saved: …; not saved: …"
  std::string Words() const;

  /// Makes a second name for the file of each entry, as far as the file system can.
  void KeepOld();
  /// Puts a copy beside the files of each folder, on the disk when this returns. 0 or an errno.
  int Write() const;
  /// Removes the copies, and second names and new files that are still there.
  void Remove() const;
  /// Raises error 75 naming the file where one was changed since or what is needed is gone; nothing was done then. Else
  /// nothing of the save is left but the files.
  void Recover(Recovery how) const;

 private:
  static std::string SecondName(const std::string& target);
  std::string Text(const std::string& folder) const;
  std::vector<std::string> Folders() const;

  std::vector<Entry> entries_;
  std::string process_;
  bool underWay_ = false;
};

/// The journals of saves that were cut short between their files, one for each save, in folders of `paths`; those of
/// saves that are complete or had not begun are passed over.
std::vector<SaveJournal> FindHalfSaves(const std::vector<std::string>& paths);

}  // namespace quorvane::workbench

#include "workbench/save/FileSaver.h"

#include <cerrno>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "base/Error.h"
#include "base/FilePath.h"
#include "base/Text.h"
#include "native/files/FileAccess.h"
#include "native/files/FileBytes.h"
#include "native/files/HeldSignals.h"
#include "native/files/Leftovers.h"
#include "native/files/NewFile.h"
#include "workbench/project/PathFinder.h"
#include "workbench/save/SaveJournal.h"

namespace quorvane::workbench {

// Several files are saved as one step as far as a file system allows that. Everything that can fail without touching a
// file comes first: that each is a plain file, may be written and is as it was when it was opened. Then all new bytes
// are written beside their files and flushed; a failure up to here leaves every file as it was. Only then the new files
// are moved over the old ones, and an error on that last stretch names what is saved and what is not; a journal beside
// them tells it to whoever comes after a crash. A signal that asks for the end waits: it stops the writing, never the
// moving. Two names of one file are one file.

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(ErrorNumber number, const std::string& text) {
  RaiseError(number, FromUtf8(text));
}

[[noreturn]] void FailWriting(const std::string& path, int error) {
  Fail(native::IsDiskFull(error) ? ErrorNumber::DiskFull : ErrorNumber::PathFileAccess,
       path + ": cannot be saved: " + native::ErrnoText(error));
}

/// One file on its way to disk.
struct Saving {
  const FileToSave* file;
  std::string target;  ///< absolute, without symbolic links
  std::unique_ptr<native::NewFile> temporary;
  native::FileStamp saved;
};

void CheckUnchanged(const Saving& saving) {
  const std::string& path = saving.file->path;
  const auto found = saving.target.empty() ? std::nullopt : native::FileStamp::Of(saving.target);
  if (!found) Fail(ErrorNumber::PathFileAccess, path + ": cannot be saved: it is no longer on disk");
  if (*found != saving.file->opened) {
    Fail(ErrorNumber::PathFileAccess, path + ": cannot be saved: it was changed on disk since it was opened");
  }
}

void Check(Saving& saving) {
  const std::string& path = saving.file->path;
  saving.target = native::RealPath(path);
  CheckUnchanged(saving);
  std::error_code failed;
  const fs::file_status found = fs::status(FilePath(saving.target), failed);
  if (!fs::is_regular_file(found)) Fail(ErrorNumber::PathFileAccess, path + ": cannot be saved: it is no plain file");
  const bool writable = (found.permissions() & fs::perms::owner_write) != fs::perms::none;
  if (!writable || !native::CanWrite(saving.target)) {
    Fail(ErrorNumber::PermissionDenied, path + ": cannot be saved: it is read-only");
  }
}

/// One entry for each file; raises when two entries want different bytes of one.
std::vector<Saving> Plan(const std::vector<FileToSave>& files, std::vector<std::size_t>& placeOf) {
  std::vector<Saving> plan;
  std::map<std::string, std::size_t> places;
  for (const FileToSave& file : files) {
    Saving saving{&file, {}, nullptr, {}};
    Check(saving);
    const auto [place, isNew] = places.try_emplace(saving.target, plan.size());
    placeOf.push_back(place->second);
    if (isNew) {
      plan.push_back(std::move(saving));
    } else if (plan[place->second].file->bytes != file.bytes) {
      Fail(ErrorNumber::PathFileAccess, file.path + ": cannot be saved: it has two different texts");
    }
  }
  return plan;
}

/// Writes the new bytes beside the file, with the stamp that they keep when they are moved. 0 or an errno.
int WriteBeside(Saving& saving) {
  saving.temporary = std::make_unique<native::NewFile>(saving.target);
  native::NewFile& file = *saving.temporary;
  int error = file.Made();
  if (error == 0) error = file.Write(saving.file->bytes);
  if (error == 0) error = file.Dress();
  if (error == 0) error = file.Finish();
  if (error != 0) return error;
  const auto stamp = native::FileStamp::Of(file.Path());
  if (!stamp) return errno;
  saving.saved = *stamp;
  return 0;
}

std::string Names(const std::vector<Saving>& plan, std::size_t begin, std::size_t end) {
  std::string names;
  for (std::size_t i = begin; i < end; ++i) names += (i == begin ? "" : ", ") + plan[i].file->path;
  return names.empty() ? "none" : names;
}

[[noreturn]] void FailRenaming(const std::vector<Saving>& plan, std::size_t renamed, const std::string& why) {
  Fail(ErrorNumber::PathFileAccess,
       why + "; saved: " + Names(plan, 0, renamed) + "; not saved: " + Names(plan, renamed, plan.size()));
}

/// What a save that did not come to its end left in the folders: temporary files go; a group that is half saved is not
/// mixed with a third state.
void ClearTheWay(const std::vector<Saving>& plan) {
  std::set<std::string> folders;
  std::vector<std::string> targets;
  for (const Saving& saving : plan) {
    targets.push_back(saving.target);
    const std::string folder = FolderOf(saving.target);
    if (!folders.insert(folder).second) continue;
    targets.push_back(folder + "/" + native::kSaveJournalName);
    const SaveJournal journal = SaveJournal::In(folder);
    if (journal.Empty()) continue;
    if (journal.UnderWay()) {
      Fail(ErrorNumber::PathFileAccess, saving.file->path + ": cannot be saved: another save is under way in " +
                                            targets.back() + "; remove that file if its program is gone");
    }
    if (journal.IsHalf())
      Fail(ErrorNumber::PathFileAccess, saving.file->path + ": cannot be saved: " + journal.Words());
    journal.Remove();
  }
  native::RemoveLeftovers(targets);
}

/// The record of a save of several files, as long as they are being replaced.
class Record {
 public:
  explicit Record(const std::vector<Saving>& plan) : journal_(Entries(plan)) {
    if (journal_.Empty()) return;
    journal_.KeepOld();
    const int error = journal_.Write();
    if (error == 0) return;
    journal_.Remove();
    FailWriting(FolderOf(plan.front().target) + "/" + native::kSaveJournalName, error);
  }
  ~Record() {
    if (!journal_.Empty()) journal_.Remove();
  }
  Record(const Record&) = delete;
  Record& operator=(const Record&) = delete;

 private:
  static std::vector<SaveJournal::Entry> Entries(const std::vector<Saving>& plan) {
    std::vector<SaveJournal::Entry> entries;
    if (plan.size() < 2) return entries;
    for (const Saving& saving : plan)
      entries.push_back({saving.target, saving.temporary->Path(), {}, saving.saved, saving.file->opened});
    return entries;
  }

  SaveJournal journal_;
};

void RenameAll(std::vector<Saving>& plan, const RenameFile& rename) {
  for (std::size_t i = 0; i < plan.size(); ++i) {
    Saving& saving = plan[i];
    if (rename(saving.temporary->Path().c_str(), saving.target.c_str()) != 0) {
      const int error = errno;
      if (plan.size() == 1) FailWriting(saving.file->path, error);
      FailRenaming(plan, i, saving.file->path + ": cannot be saved: " + native::ErrnoText(error));
    }
    saving.temporary->Moved();
  }
  std::set<std::string> folders;
  for (const Saving& saving : plan) {
    const std::string folder = FolderOf(saving.target);
    if (!folders.insert(folder).second) continue;
    if (const int error = native::FlushFolder(folder)) {
      FailRenaming(plan, plan.size(), folder + ": the folder cannot be flushed: " + native::ErrnoText(error));
    }
  }
}

}  // namespace

std::vector<native::FileStamp> SaveFiles(const std::vector<FileToSave>& files, const RenameFile& rename) {
  const native::HeldSignals held;
  std::vector<std::size_t> placeOf;
  std::vector<Saving> plan = Plan(files, placeOf);
  ClearTheWay(plan);
  for (Saving& saving : plan) {
    if (const int error = WriteBeside(saving)) FailWriting(saving.file->path, error);
    if (held.Any()) Fail(ErrorNumber::UserInterrupt, "interrupted while saving: nothing was saved");
  }
  for (const Saving& saving : plan) CheckUnchanged(saving);
  {
    const Record record(plan);
    RenameAll(plan, rename ? rename : RenameFile(native::MoveOver));
  }

  std::vector<native::FileStamp> stamps;
  for (const std::size_t place : placeOf) stamps.push_back(plan[place].saved);
  return stamps;
}

}  // namespace quorvane::workbench

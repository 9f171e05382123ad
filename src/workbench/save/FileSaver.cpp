#include "workbench/save/FileSaver.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "workbench/project/FileLoader.h"

namespace quorvane::workbench {

namespace {

constexpr std::int32_t kDiskFull = 61;
constexpr std::int32_t kPermissionDenied = 70;
constexpr std::int32_t kPathAccess = 75;
/// Leaves room for the rest of a temporary name within the 255 bytes of a file name.
constexpr std::size_t kLongestName = 200;

[[noreturn]] void Fail(std::int32_t number, const std::string& text) {
  throw Error(number, FromUtf8(text));
}

[[noreturn]] void FailWriting(const std::string& path, int error) {
  const bool full = error == ENOSPC || error == EDQUOT || error == EFBIG;
  Fail(full ? kDiskFull : kPathAccess, path + ": cannot be saved: " + ErrnoText(error));
}

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

/// A file beside its target with the bytes to come, removed again unless it took the target's place.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& target) {
    const std::size_t slash = target.rfind('/') + 1;
    path_ = target.substr(0, slash) + "." + target.substr(slash, kLongestName) + ".quorvane-XXXXXX";
    handle_ = ::mkostemp(path_.data(), O_CLOEXEC);
    error_ = handle_ < 0 ? errno : 0;
    exists_ = handle_ >= 0;
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (handle_ >= 0) ::close(handle_);
    if (exists_) ::unlink(path_.c_str());
  }

  /// 0 or an errno. Fills in the stamp that the file has then and keeps when it is renamed.
  int Write(const std::string& bytes, const struct stat& like, FileStamp& stamp) {
    if (handle_ < 0) return error_;
    struct stat found {};
    const bool done = WriteAll(bytes) && Dress(like) && ::fsync(handle_) == 0 && ::fstat(handle_, &found) == 0;
    const int error = done ? 0 : errno;
    const bool closed = ::close(std::exchange(handle_, -1)) == 0;
    stamp = FileStamp::From(found);
    return error != 0 ? error : closed ? 0 : errno;
  }

  const std::string& Path() const { return path_; }
  void Renamed() { exists_ = false; }

 private:
  bool WriteAll(const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
      const ssize_t count = ::write(handle_, bytes.data() + done, bytes.size() - done);
      if (count < 0 && errno == EINTR) continue;
      if (count == 0) errno = ENOSPC;
      if (count <= 0) return false;
      done += static_cast<std::size_t>(count);
    }
    return true;
  }

  /// Another user's file may become ours. The mode comes last, as a change of owner takes bits away.
  bool Dress(const struct stat& like) {
    const bool owned = ::fchown(handle_, like.st_uid, like.st_gid) == 0;
    if (!owned) static_cast<void>(!::fchown(handle_, static_cast<uid_t>(-1), like.st_gid));
    return ::fchmod(handle_, like.st_mode & 07777) == 0;
  }

  std::string path_;
  int handle_ = -1;
  int error_ = 0;  ///< of the attempt to make it
  bool exists_ = false;
};

/// One file on its way to disk.
struct Saving {
  const FileToSave* file;
  std::string target;  ///< absolute, without symbolic links
  struct stat found {};
  std::unique_ptr<TemporaryFile> temporary;
  FileStamp saved;
};

std::string RealPath(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
  return real ? std::string(real.get()) : std::string();
}

void CheckUnchanged(const Saving& saving) {
  const std::string& path = saving.file->path;
  struct stat found {};
  if (saving.target.empty() || ::stat(saving.target.c_str(), &found) != 0) {
    Fail(kPathAccess, path + ": cannot be saved: it is no longer on disk");
  }
  if (FileStamp::From(found) != saving.file->opened) {
    Fail(kPathAccess, path + ": cannot be saved: it was changed on disk since it was opened");
  }
}

void Check(Saving& saving) {
  const std::string& path = saving.file->path;
  saving.target = RealPath(path);
  CheckUnchanged(saving);
  if (::stat(saving.target.c_str(), &saving.found) != 0) FailWriting(path, errno);
  if (!S_ISREG(saving.found.st_mode)) Fail(kPathAccess, path + ": cannot be saved: it is no plain file");
  if ((saving.found.st_mode & S_IWUSR) == 0 || ::access(saving.target.c_str(), W_OK) != 0) {
    Fail(kPermissionDenied, path + ": cannot be saved: it is read-only");
  }
}

/// One entry for each file; raises when two entries want different bytes of one.
std::vector<Saving> Plan(const std::vector<FileToSave>& files, std::vector<std::size_t>& placeOf) {
  std::vector<Saving> plan;
  std::map<std::string, std::size_t> places;
  for (const FileToSave& file : files) {
    Saving saving{&file, {}, {}, nullptr, {}};
    Check(saving);
    const auto [place, isNew] = places.try_emplace(saving.target, plan.size());
    placeOf.push_back(place->second);
    if (isNew) {
      plan.push_back(std::move(saving));
    } else if (plan[place->second].file->bytes != file.bytes) {
      Fail(kPathAccess, file.path + ": cannot be saved: it has two different texts");
    }
  }
  return plan;
}

/// Flushes the entries of a folder; 0 or an errno. Some file systems cannot, and need not.
int FlushFolder(const std::string& folder) {
  const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return errno;
  const int error = ::fsync(handle) == 0 || errno == EINVAL ? 0 : errno;
  ::close(handle);
  return error;
}

std::string Names(const std::vector<Saving>& plan, std::size_t begin, std::size_t end) {
  std::string names;
  for (std::size_t i = begin; i < end; ++i) names += (i == begin ? "" : ", ") + plan[i].file->path;
  return names.empty() ? "none" : names;
}

[[noreturn]] void FailRenaming(const std::vector<Saving>& plan, std::size_t renamed, const std::string& why) {
  Fail(kPathAccess, why + "; saved: " + Names(plan, 0, renamed) + "; not saved: " + Names(plan, renamed, plan.size()));
}

void RenameAll(std::vector<Saving>& plan, const RenameFile& rename) {
  for (std::size_t i = 0; i < plan.size(); ++i) {
    Saving& saving = plan[i];
    if (rename(saving.temporary->Path().c_str(), saving.target.c_str()) != 0) {
      const int error = errno;
      if (plan.size() == 1) FailWriting(saving.file->path, error);
      FailRenaming(plan, i, saving.file->path + ": cannot be saved: " + ErrnoText(error));
    }
    saving.temporary->Renamed();
  }
  std::set<std::string> folders;
  for (const Saving& saving : plan) {
    const std::string folder = FolderOf(saving.target);
    if (!folders.insert(folder).second) continue;
    if (const int error = FlushFolder(folder)) {
      FailRenaming(plan, plan.size(), folder + ": the folder cannot be flushed: " + ErrnoText(error));
    }
  }
}

}  // namespace

std::vector<FileStamp> SaveFiles(const std::vector<FileToSave>& files, const RenameFile& rename) {
  std::vector<std::size_t> placeOf;
  std::vector<Saving> plan = Plan(files, placeOf);
  for (Saving& saving : plan) {
    saving.temporary = std::make_unique<TemporaryFile>(saving.target);
    if (const int error = saving.temporary->Write(saving.file->bytes, saving.found, saving.saved)) {
      FailWriting(saving.file->path, error);
    }
  }
  for (const Saving& saving : plan) CheckUnchanged(saving);
  RenameAll(plan, rename ? rename : RenameFile(::rename));

  std::vector<FileStamp> stamps;
  for (const std::size_t place : placeOf) stamps.push_back(plan[place].saved);
  return stamps;
}

}  // namespace quorvane::workbench

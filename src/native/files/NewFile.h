#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane::native {

/// A file that shall take another's place: written beside it, and gone again unless TakePlace succeeded. Each step
/// gives 0 or an errno; after a failed one nothing is left but the end. All paths are UTF-8.
class NewFile {
 public:
  /// Made beside `target`, which is no link and need not exist yet.
  explicit NewFile(std::string target);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// How the making went.
  int Made() const { return made_; }
  int Write(std::string_view bytes);
  /// Gives it what the target has, or else what a new file usually gets: the permissions, and owner and group, or the
  /// attributes and the date of creation, as far as the system has them and the user may.
  int Dress();
  /// After this all bytes are on the disk and the file is closed.
  int Finish();
  int TakePlace();

  const std::string& Path() const { return path_; }
  /// Somebody else moved it: it is not to be removed any more.
  void Moved() { exists_ = false; }

 private:
  std::string target_;
  std::string path_;
  std::intptr_t handle_ = -1;
  int made_ = 0;
  bool exists_ = false;
};

/// `from` takes the place of `to`, at once and for good, or nothing happens. 0, or -1 with errno set, as rename(2)
/// does.
int MoveOver(const char* from, const char* to);

/// Makes the entries of a folder last, empty for the working directory; 0 or an errno. Some file systems cannot, and
/// need not.
int FlushFolder(const std::string& folder);

}  // namespace quorvane::native

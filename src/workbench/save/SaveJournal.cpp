// The file is a line a name: a letter, a blank, the name with the bytes escaped that would end a line.
//
//   quorvane-save 1          what it is, and its form
//   p MARK                   the process
//   t TARGET                 a file …
//   f FRESH STAMP            … its new one …
//   o [OLD] STAMP            … and its old one; so for each file
//   end                      all of it is there
//
// A new file that is still under its temporary name was not put in place: nothing else has to be written down while the
// files are replaced.

#include "workbench/save/SaveJournal.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <set>
#include <sstream>
#include <string_view>
#include <system_error>

#include "base/Error.h"
#include "base/FilePath.h"
#include "base/Text.h"
#include "native/files/FileBytes.h"
#include "native/files/Leftovers.h"
#include "native/files/NewFile.h"
#include "native/files/ProcessMark.h"
#include "workbench/project/PathFinder.h"

namespace quorvane::workbench {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kFirstLine = "quorvane-save 1";

[[noreturn]] void Fail(const std::string& text) {
  RaiseError(ErrorNumber::PathFileAccess, FromUtf8(text));
}

bool Exists(const std::string& path) {
  std::error_code unknown;
  return !path.empty() && fs::exists(fs::symlink_status(FilePath(path), unknown));
}

/// Blanks, '%' and control characters as "%XX".
std::string Escaped(std::string_view name) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string out;
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 0x20 && byte != 0x7F && c != '%') {
      out += c;
    } else {
      out += {'%', kDigits[byte >> 4U], kDigits[byte & 0xFU]};
    }
  }
  return out;
}

std::string Unescaped(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size()) {
      out += static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16));
      i += 2;
    } else {
      out += text[i];
    }
  }
  return out;
}

std::string Relative(const std::string& path, const std::string& folder) {
  const fs::path shown = FilePath(path).lexically_relative(FilePath(folder));
  return shown.empty() ? path : PathText(shown);
}

std::string Absolute(const std::string& path, const std::string& folder) {
  return PathText((fs::absolute(FilePath(folder.empty() ? "." : folder)) / FilePath(path)).lexically_normal());
}

std::string StampText(const native::FileStamp& stamp) {
  std::ostringstream text;
  text << stamp.device << ' ' << stamp.inode << ' ' << stamp.size << ' ' << stamp.modifiedSeconds << ' '
       << stamp.modifiedNanoseconds;
  return text.str();
}

native::FileStamp ReadStamp(std::istream& in) {
  native::FileStamp stamp;
  in >> stamp.device >> stamp.inode >> stamp.size >> stamp.modifiedSeconds >> stamp.modifiedNanoseconds;
  return stamp;
}

std::string JournalPath(const std::string& folder) {
  return folder.empty() ? native::kSaveJournalName : folder + "/" + native::kSaveJournalName;
}

void RemoveFile(const std::string& path) {
  std::error_code failed;
  if (!path.empty()) fs::remove(FilePath(path), failed);
}

bool IsAt(const std::string& path, const native::FileStamp& stamp) {
  const auto found = native::FileStamp::Of(path);
  return found && found->size == stamp.size && found->modifiedSeconds == stamp.modifiedSeconds &&
         found->modifiedNanoseconds == stamp.modifiedNanoseconds;
}

void Move(const std::string& from, const std::string& to) {
  if (native::MoveOver(from.c_str(), to.c_str()) != 0) Fail(to + ": cannot be written: " + native::ErrnoText(errno));
}

}  // namespace

bool SaveJournal::Entry::Replaced() const {
  return !Exists(fresh);
}

bool SaveJournal::Entry::Lost() const {
  return !Replaced() && !Exists(target);
}

SaveJournal SaveJournal::In(const std::string& folder) {
  const std::string path = JournalPath(folder);
  const native::FileBytes file = native::ReadFileBytes(path);
  if (file.error == ENOENT || file.error == ENOTDIR) return SaveJournal({});
  if (file.error != 0) Fail(path + ": " + native::ErrnoText(file.error));
  std::istringstream in(file.bytes);
  std::string line;
  std::getline(in, line);
  const bool known = line == kFirstLine;
  SaveJournal journal({});
  bool whole = false;
  std::string kind;
  while (known && !whole && in >> kind) {
    std::string name;
    if (kind != "end") in >> name;
    const std::string named = name == "-" ? std::string() : Absolute(Unescaped(name), folder);
    if (kind == "p") journal.process_ = name;
    if (kind == "t") journal.entries_.push_back({named, {}, {}, {}, {}});
    if ((kind == "f" || kind == "o") && journal.entries_.empty()) break;
    if (kind == "f") journal.entries_.back().fresh = named;
    if (kind == "f") journal.entries_.back().freshStamp = ReadStamp(in);
    if (kind == "o") journal.entries_.back().old = named;
    if (kind == "o") journal.entries_.back().oldStamp = ReadStamp(in);
    whole = kind == "end";
  }
  if (!whole || journal.entries_.empty()) Fail(path + ": is no record of a save");
  journal.underWay_ = !native::SurelyEnded(journal.process_);
  return journal;
}

bool SaveJournal::IsHalf() const {
  const auto replaced = std::ranges::count_if(entries_, &Entry::Replaced);
  return (replaced > 0 && replaced < std::ssize(entries_)) || std::ranges::any_of(entries_, &Entry::Lost);
}

std::string SaveJournal::Words() const {
  std::string done;
  std::string open;
  std::size_t count = 0;
  for (const Entry& entry : entries_) {
    const bool replaced = entry.Replaced();
    std::string& names = replaced ? done : open;
    if (replaced) ++count;
    names += (names.empty() ? "" : ", ") + ShownPath(entry.target);
  }
  return "a save of several files was cut short: " + std::to_string(count) + " of " + std::to_string(entries_.size()) +
         " are saved; saved: " + done + "; not saved: " + open;
}

std::vector<std::string> SaveJournal::Folders() const {
  std::set<std::string> folders;
  for (const Entry& entry : entries_) folders.insert(FolderOf(entry.target));
  return {folders.begin(), folders.end()};
}

std::string SaveJournal::Text(const std::string& folder) const {
  std::string text = std::string(kFirstLine) + "\np " + native::ProcessMark() + '\n';
  for (const Entry& entry : entries_) {
    const std::string old = entry.old.empty() ? "-" : Escaped(Relative(entry.old, folder));
    text += "t " + Escaped(Relative(entry.target, folder)) + "\nf " + Escaped(Relative(entry.fresh, folder)) + ' ' +
            StampText(entry.freshStamp) + "\no " + old + ' ' + StampText(entry.oldStamp) + '\n';
  }
  return text + "end\n";
}

std::string SaveJournal::SecondName(const std::string& target) {
  constexpr int kAttempts = 100;
  static std::atomic<unsigned> last = 0;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    const std::string number = std::to_string(++last % 1000000);
    const std::string name =
        native::TemporaryPrefix(target) + native::ProcessMark() + '-' + std::string(6 - number.size(), '0') + number;
    std::error_code failed;
    fs::create_hard_link(FilePath(target), FilePath(name), failed);
    if (!failed) return name;
    if (failed != std::errc::file_exists) break;
  }
  return {};
}

void SaveJournal::KeepOld() {
  for (Entry& entry : entries_) entry.old = SecondName(entry.target);
}

int SaveJournal::Write() const {
  for (const std::string& folder : Folders()) {
    native::NewFile file(JournalPath(folder));
    int error = file.Made();
    if (error == 0) error = file.Write(Text(folder));
    if (error == 0) error = file.Finish();
    if (error == 0) error = file.TakePlace();
    if (error == 0) error = native::FlushFolder(folder);
    if (error != 0) return error;
  }
  return 0;
}

void SaveJournal::Remove() const {
  for (const std::string& folder : Folders()) RemoveFile(JournalPath(folder));
  for (const Entry& entry : entries_) {
    RemoveFile(entry.old);
    RemoveFile(entry.fresh);
  }
}

void SaveJournal::Recover(Recovery how) const {
  for (const Entry& entry : entries_) {
    const bool replaced = entry.Replaced();
    const bool touched = entry.Lost() || (how != Recovery::Keep && replaced == (how == Recovery::GoBack));
    if (!touched || (replaced && IsAt(entry.target, entry.oldStamp))) continue;
    if (!entry.Lost() && !IsAt(entry.target, replaced ? entry.freshStamp : entry.oldStamp))
      Fail(ShownPath(entry.target) + ": was changed since the save was cut short; only keep is left");
    if (how == Recovery::GoBack && !Exists(entry.old))
      Fail(ShownPath(entry.target) + ": the file as it was is gone; only finish and keep are left");
  }
  for (const Entry& entry : entries_) {
    const bool replaced = entry.Replaced();
    const bool lost = entry.Lost();
    const bool oldComes = lost ? how != Recovery::Finish : how == Recovery::GoBack && replaced;
    if (oldComes && Exists(entry.old)) {
      Move(entry.old, entry.target);
    } else if (lost || (how == Recovery::Finish && !replaced)) {
      Move(entry.fresh, entry.target);
    }
  }
  for (const std::string& folder : Folders()) native::FlushFolder(folder);
  Remove();
}

std::vector<SaveJournal> FindHalfSaves(const std::vector<std::string>& paths) {
  std::set<std::string> folders;
  for (const std::string& path : paths) folders.insert(FolderOf(path));
  std::vector<SaveJournal> found;
  for (const std::string& folder : folders) {
    SaveJournal journal = SaveJournal::In(folder);
    if (journal.Empty() || journal.UnderWay() || !journal.IsHalf()) continue;
    const auto same = [&journal](const SaveJournal& other) {
      return other.Entries().front().target == journal.Entries().front().target;
    };
    if (std::ranges::none_of(found, same)) found.push_back(std::move(journal));
  }
  return found;
}

}  // namespace quorvane::workbench

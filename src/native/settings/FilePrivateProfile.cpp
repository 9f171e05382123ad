#include "native/settings/FilePrivateProfile.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/Error.h"
#include "base/FilePath.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "native/files/AtomicFile.h"
#include "native/files/DamagedCopy.h"
#include "native/files/FileAccess.h"
#include "native/files/FileBytes.h"
#include "native/settings/IniText.h"

namespace quorvane::native {

namespace {

bool Exists(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::exists(FilePath(path), ignored);
}

/// Below /usr lies what packages brought and take away again: there nobody keeps anything, an administrator neither.
bool IsWritable(const std::string& path) {
  if (path.starts_with("/usr/")) return false;
  if (Exists(path)) return CanWrite(path);
  const std::filesystem::path above = FilePath(path).parent_path();
  const std::filesystem::path folder = above.empty() ? "." : above;
  std::error_code ignored;
  return std::filesystem::is_directory(folder, ignored) && CanWrite(PathText(folder));
}

/// As a text that ends at its first zero byte.
std::string_view Narrow(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

bool FitsALine(std::string_view section, std::string_view key, std::string_view value) {
  const auto lacks = [](std::string_view text, const char* characters) {
    return text.find_first_of(characters) == std::string_view::npos;
  };
  return lacks(section, "\r\n") && lacks(key, "\r\n=") && lacks(value, "\r\n");
}

}  // namespace

FilePrivateProfile::FilePrivateProfile(std::string userFolder) : userFolder_(std::move(userFolder)) {}

std::string FilePrivateProfile::UserCopy(const std::string& file) const {
  return PathText(FilePath(userFolder_) / FilePath(file).filename());
}

std::size_t FilePrivateProfile::Read(std::string_view section, std::string_view key, std::string_view defaultValue,
                                     char* buffer, std::size_t size, const std::u16string& file) {
  if (size == 0) return 0;
  const auto found = IniText(ReadFileBytes(ToUtf8(PlaceOf(file))).bytes).Get(Narrow(section), Narrow(key));
  std::string_view value = Narrow(defaultValue);
  value = value.substr(0, value.find_last_not_of(' ') + 1);
  if (found) value = Narrow(*found);
  value = value.substr(0, size - 1);
  std::copy(value.begin(), value.end(), buffer);
  buffer[value.size()] = '\0';
  return value.size();
}

std::u16string FilePrivateProfile::PlaceOf(const std::u16string& file) {
  const std::string path = ToUtf8(file);
  return !IsWritable(path) && Exists(UserCopy(path)) ? FromUtf8(UserCopy(path)) : file;
}

/// Where the folder of the file takes no copy the user's folder does.
std::u16string FilePrivateProfile::KeepCopy(const std::u16string& file) {
  const std::string place = ToUtf8(PlaceOf(file));
  if (!Exists(place)) return {};
  const std::string folder = PathText(FilePath(place).parent_path());
  if (IsWritable(place) && (folder.empty() || CanWrite(folder))) return FromUtf8(KeepDamagedCopy(place));
  const std::string copy = UserCopy(place);
  std::filesystem::create_directories(FilePath(userFolder_));
  if (copy != place) WriteFileWhole(copy, ReadFileBytes(place).bytes);
  return FromUtf8(KeepDamagedCopy(copy));
}

bool FilePrivateProfile::Write(std::string_view section, std::optional<std::string_view> key,
                               std::optional<std::string_view> value, const std::u16string& file) {
  section = Narrow(section);
  if (!FitsALine(section, Narrow(key.value_or("")), Narrow(value.value_or("")))) return false;
  return SkipErrors([&] {
    const std::string named = ToUtf8(file);
    const bool original = IsWritable(named);
    const std::string path = original ? named : UserCopy(named);
    const std::string source = Exists(path) ? path : named;
    const FileBytes old = ReadFileBytes(source);
    if (old.error != 0 && Exists(source)) RaiseError(ErrorNumber::InvalidProcedureCall);  // unreadable: not replaced
    if (!original) std::filesystem::create_directories(FilePath(userFolder_));
    if ((!key || !value) && !Exists(source)) return;  // nothing to delete, and no file is made for that
    IniText text(old.bytes);
    if (!key) {
      text.RemoveSection(section);
    } else if (!value) {
      text.RemoveKey(section, Narrow(*key));
    } else {
      text.Set(section, Narrow(*key), Narrow(*value));
    }
    WriteFileWhole(path, text.Bytes());
  });
}

}  // namespace quorvane::native

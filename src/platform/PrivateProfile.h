#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane {

/// The platform's INI files. Sections, keys and values are bytes of the ANSI code page and end at their first zero
/// byte; section and key are found in any case of their ASCII letters. Nothing is cached.
class PrivateProfile {
 public:
  virtual ~PrivateProfile() = default;

  /// GetPrivateProfileStringA. Copies the value, or `defaultValue` without its trailing blanks when file, section or
  /// key is missing, into `buffer`, cut at `size` - 1 bytes and ended by a zero byte; what lies after stays as it was.
  /// A value comes without the blanks around it and without one pair of quotes. Returns its length in bytes.
  virtual std::size_t Read(std::string_view section, std::string_view key, std::string_view defaultValue, char* buffer,
                           std::size_t size, const std::u16string& file) = 0;

  /// WritePrivateProfileStringA. Sets a value and makes what is missing of file, section and key; without `value`
  /// removes the key, without `key` the section. True on success.
  virtual bool Write(std::string_view section, std::optional<std::string_view> key,
                     std::optional<std::string_view> value, const std::u16string& file) = 0;

  /// The file that is really read for `file`, as a user finds it.
  virtual std::u16string PlaceOf(const std::u16string& file) { return file; }
  /// Keeps a copy of that file beside it, under a name that no later copy takes, and gives its path; empty without a
  /// file. Raises when it cannot be kept.
  virtual std::u16string KeepCopy(const std::u16string& file) = 0;
};

}  // namespace quorvane

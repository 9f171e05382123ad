#pragma once

#include <string>

#include "platform/PrivateProfile.h"

namespace quorvane::native {

/// INI files on disk. A file that cannot be written, or lies below /usr as beside an installed program, is kept under
/// its name in the user's folder instead; that copy starts as the original and is what is read from then on, for as
/// long as the original cannot be written.
class FilePrivateProfile final : public PrivateProfile {
 public:
  /// `userFolder` is made when it is needed.
  explicit FilePrivateProfile(std::string userFolder);

  std::size_t Read(std::string_view section, std::string_view key, std::string_view defaultValue, char* buffer,
                   std::size_t size, const std::u16string& file) override;
  /// False also for a section, key or value that a line of the file cannot hold.
  bool Write(std::string_view section, std::optional<std::string_view> key, std::optional<std::string_view> value,
             const std::u16string& file) override;
  std::u16string PlaceOf(const std::u16string& file) override;
  /// Named by KeepDamagedCopy.
  std::u16string KeepCopy(const std::u16string& file) override;

 private:
  std::string UserCopy(const std::string& file) const;

  std::string userFolder_;
};

}  // namespace quorvane::native

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "platform/RegistryStore.h"

namespace quorvane {
class CodePage;
}

namespace quorvane::native {

/// A registry in one file. Each call reads the file anew and each change is written before it returns, through a
/// rename, so that programs see each other's values and a call that fails changes nothing; of two programs that write
/// at the same moment the last one wins. Names are alike in upper and
/// lower case of ASCII letters. The statuses are the platform's: 2 for what is not there, 5 for what may not be done or
/// written, 6 for a key that is not open, 161 for a path with an empty part, 234 for data that does not fit, 1015 for a
/// file that is damaged, which is then left as it is.
class FileRegistryStore final : public RegistryStore {
 public:
  static constexpr RegistryKey kCurrentUser = static_cast<RegistryKey>(0x80000001);

  /// `path` is UTF-8; its folder is made when it is needed. `page` gives the names' characters and outlives this.
  FileRegistryStore(std::string path, const CodePage& page);

  std::int32_t OpenKey(RegistryKey key, std::string_view subKey, std::uint32_t access, RegistryKey& result) override;
  std::int32_t CreateKey(RegistryKey key, std::string_view subKey, std::uint32_t options, std::uint32_t access,
                         bool inheritHandle, RegistryKey& result) override;
  std::int32_t QueryValue(RegistryKey key, std::string_view name, std::int32_t& type, char* data,
                          std::size_t& size) override;
  std::int32_t SetValue(RegistryKey key, std::string_view name, std::int32_t type, std::string_view data) override;
  std::int32_t DeleteValue(RegistryKey key, std::string_view name) override;
  /// Status 5 for a key that has keys below it.
  std::int32_t DeleteKey(RegistryKey key, std::string_view subKey) override;
  std::int32_t CloseKey(RegistryKey key) override;

 private:
  /// Where an open key lies: a root key, and the parts of the path below it with "\" between them.
  struct Place {
    std::u16string root;
    std::u16string path;
    std::uint32_t access = 0;
  };

  /// The place of `subKey` below an open key.
  std::int32_t Below(RegistryKey key, std::string_view subKey, Place& place) const;
  RegistryKey Enter(Place place, std::uint32_t access);
  /// Runs `action`, which gives a status, on the sections of the file and the key's place.
  template <class Action>
  std::int32_t OnKey(RegistryKey key, std::uint32_t access, Action action) const;
  std::u16string Decoded(std::string_view bytes) const;

  std::string path_;
  const CodePage& page_;
  std::map<RegistryKey, Place> open_;  ///< the root keys are always there
  RegistryKey last_ = 0;
};

}  // namespace quorvane::native

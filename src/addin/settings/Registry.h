#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "addin/core/Counted.h"
#include "platform/RegistryStore.h"

namespace quorvane {

/// Reads and writes single registry values. Every operation tells its outcome twice: by its result, true on success,
/// and by the number and the text of its failure, 0 and empty on success. It raises nothing.
class Registry : private Counted<Registry> {
 public:
  static constexpr std::string_view ClassName = "Registry";

  /// A value on its way in or out; nothing counts as empty text or 0.
  using Value = std::variant<std::monostate, std::u16string, std::int32_t>;

  enum Type : std::int32_t { kRegSz = 1, kRegExpandSz = 2, kRegBinary = 3, kRegDword = 4 };

  /// kRegSz gives text of at most 255 bytes with its zero, kRegExpandSz text of any length, unexpanded, kRegBinary and
  /// kRegDword an integer out of the first four bytes. Another type leaves `sValue` as it was and is no failure.
  bool GetValue(RegistryKey mainKey, std::u16string_view subKey, std::u16string_view keyV, Value& sValue,
                std::int32_t* rlngErrNum = nullptr, std::u16string* rstrErrDescr = nullptr);
  /// Makes the key when needed, also when the value then fails. A type that is none of the four is a failure.
  bool SetValue(RegistryKey mainKey, std::u16string_view subKey, std::u16string_view keyV, std::int32_t lType,
                const Value& sValue, std::int32_t* rlngErrNum = nullptr, std::u16string* rstrErrDescr = nullptr);
  bool DeleteValue(RegistryKey mainKey, std::u16string_view subKey, std::u16string_view keyV,
                   std::int32_t* rlngErrNum = nullptr, std::u16string* rstrErrDescr = nullptr);
  /// Deletes the subkey `keyV` of `subKey`.
  bool DeleteKey(RegistryKey mainKey, std::u16string_view subKey, std::u16string_view keyV,
                 std::int32_t* rlngErrNum = nullptr, std::u16string* rstrErrDescr = nullptr);
};

}  // namespace quorvane

#include "addin/settings/Registry.h"

#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "base/Convert.h"
#include "base/Error.h"
#include "base/Text.h"
#include "platform/CodePage.h"
#include "platform/Platform.h"

namespace quorvane {

namespace {

constexpr std::uint32_t kReadAccess = 0x20019;
constexpr std::uint32_t kWriteAccess = 0x20006;
constexpr std::size_t kTextBuffer = 255;  // bytes
constexpr std::size_t kLongSize = 4;      // bytes

[[noreturn]] void Fail(StringId id) {
  throw Error(kErrRegistry, Globals::Language().GetString(id));
}

void Require(std::int32_t status, StringId id) {
  if (status != 0) Fail(id);
}

/// An open key; the destructor closes it on the ways out that do not call Close.
class KeyScope {
 public:
  KeyScope() = default;
  ~KeyScope() {
    if (handle != 0) ThePlatform().Registry().CloseKey(handle);
  }
  KeyScope(const KeyScope&) = delete;
  KeyScope& operator=(const KeyScope&) = delete;

  std::int32_t Close() {
    const RegistryKey closing = handle;
    handle = 0;
    return ThePlatform().Registry().CloseKey(closing);
  }

  RegistryKey handle = 0;
};

std::string Narrow(std::u16string_view text) {
  return ThePlatform().AnsiCodePage().EncodedOrAsked(text);
}

std::u16string ValueText(const Registry::Value& value) {
  if (const auto* text = std::get_if<std::u16string>(&value)) return *text;
  if (const auto* number = std::get_if<std::int32_t>(&value)) return ToText(*number);
  return {};
}

std::int32_t ValueLong(const Registry::Value& value) {
  if (const auto* text = std::get_if<std::u16string>(&value)) return ToLong(*text);
  if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
  return 0;
}

/// The bytes of a value in a buffer of `size`.
std::string Read(RegistryKey key, const std::string& name, std::size_t size) {
  std::string buffer(size, '\0');
  std::int32_t type = 0;
  Require(ThePlatform().Registry().QueryValue(key, name, type, buffer.data(), size), StringId::RegistryGetFailed);
  buffer.resize(size);
  return buffer;
}

void ReadValue(RegistryKey key, const std::string& name, Registry::Value& value) {
  std::int32_t type = 0;
  std::size_t size = 0;
  Require(ThePlatform().Registry().QueryValue(key, name, type, nullptr, size), StringId::RegistryGetFailed);
  if (type == Registry::kRegSz || type == Registry::kRegExpandSz) {
    const std::string bytes = Read(key, name, type == Registry::kRegSz ? kTextBuffer : size);
    std::u16string text;
    ThePlatform().AnsiCodePage().Decode(std::string_view(bytes).substr(0, bytes.find('\0')), text);
    value = text;
  } else if (type == Registry::kRegBinary || type == Registry::kRegDword) {
    // A longer binary value is read whole, its first four bytes count; a shorter one is filled up with zeros.
    std::string bytes = Read(key, name, size);
    bytes.resize(kLongSize, '\0');
    std::uint32_t number = 0;
    for (std::size_t i = kLongSize; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[i]);
    value = static_cast<std::int32_t>(number);
  }
}

std::string ValueBytes(std::int32_t type, const Registry::Value& value) {
  if (type == Registry::kRegSz || type == Registry::kRegExpandSz) return Narrow(ValueText(value)) + '\0';
  if (type != Registry::kRegBinary && type != Registry::kRegDword) Fail(StringId::RegistryTypeUnknown);
  const auto number = static_cast<std::uint32_t>(ValueLong(value));
  std::string bytes;
  for (std::size_t i = 0; i < kLongSize; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xFF);
  return bytes;
}

/// Runs one operation and tells its outcome.
template <class Operation>
bool Outcome(std::int32_t* number, std::u16string* description, Operation operation) {
  Error error;
  try {
    operation(ThePlatform().Registry());
  } catch (...) {
    error = CurrentError();
  }
  if (number != nullptr) *number = error.Number;
  if (description != nullptr) *description = error.Description;
  return error.Number == 0;
}

}  // namespace

bool Registry::GetValue(RegistryKey mainKey, std::u16string_view subKey, std::u16string_view keyV, Value& sValue,
                        std::int32_t* rlngErrNum, std::u16string* rstrErrDescr) {
  return Outcome(rlngErrNum, rstrErrDescr, [&](RegistryStore& store) {
    KeyScope key;
    Require(store.OpenKey(mainKey, Narrow(subKey), kReadAccess, key.handle), StringId::RegistryGetFailed);
    Value value = sValue;
    ReadValue(key.handle, Narrow(keyV), value);
    Require(key.Close(), StringId::RegistryGetFailed);
    sValue = value;
  });
}

bool Registry::SetValue(RegistryKey mainKey, std::u16string_view subKey, std::u16string_view keyV, std::int32_t lType,
                        const Value& sValue, std::int32_t* rlngErrNum, std::u16string* rstrErrDescr) {
  return Outcome(rlngErrNum, rstrErrDescr, [&](RegistryStore& store) {
    KeyScope key;
    Require(store.CreateKey(mainKey, Narrow(subKey), 0, kWriteAccess, true, key.handle), StringId::RegistrySetFailed);
    Require(store.SetValue(key.handle, Narrow(keyV), lType, ValueBytes(lType, sValue)), StringId::RegistrySetFailed);
    Require(key.Close(), StringId::RegistrySetFailed);
  });
}

bool Registry::DeleteValue(RegistryKey mainKey, std::u16string_view subKey, std::u16string_view keyV,
                           std::int32_t* rlngErrNum, std::u16string* rstrErrDescr) {
  return Outcome(rlngErrNum, rstrErrDescr, [&](RegistryStore& store) {
    KeyScope key;
    Require(store.OpenKey(mainKey, Narrow(subKey), kWriteAccess, key.handle), StringId::RegistryDeleteFailed);
    Require(store.DeleteValue(key.handle, Narrow(keyV)), StringId::RegistryDeleteFailed);
    Require(key.Close(), StringId::RegistryDeleteFailed);
  });
}

bool Registry::DeleteKey(RegistryKey mainKey, std::u16string_view subKey, std::u16string_view keyV,
                         std::int32_t* rlngErrNum, std::u16string* rstrErrDescr) {
  return Outcome(rlngErrNum, rstrErrDescr, [&](RegistryStore& store) {
    KeyScope key;
    Require(store.OpenKey(mainKey, Narrow(subKey), kWriteAccess, key.handle), StringId::RegistryDeleteFailed);
    Require(store.DeleteKey(key.handle, Narrow(keyV)), StringId::RegistryDeleteFailed);
    Require(key.Close(), StringId::RegistryDeleteFailed);
  });
}

}  // namespace quorvane

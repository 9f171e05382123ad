// A key is a section of the file, in the group of its root key; a value is "TYPE:BYTES", the bytes in hexadecimal
// digits. Every key has a section of its own, and so has each key above it; a
// root key gets one with its first value.
#include "native/settings/FileRegistryStore.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>
#include <vector>

#include "base/Skip.h"
#include "base/Text.h"
#include "native/settings/SettingsFile.h"
#include "platform/CodePage.h"

namespace quorvane::native {

namespace {

constexpr std::int32_t kDone = 0;
constexpr std::int32_t kNotFound = 2;
constexpr std::int32_t kAccessDenied = 5;
constexpr std::int32_t kInvalidHandle = 6;
constexpr std::int32_t kBadPath = 161;
constexpr std::int32_t kMoreData = 234;
constexpr std::int32_t kCorrupt = 1015;

constexpr std::u16string_view kRoots[] = {u"HKEY_CLASSES_ROOT", u"HKEY_CURRENT_USER", u"HKEY_LOCAL_MACHINE",
                                          u"HKEY_USERS"};
constexpr std::uint32_t kFirstRoot = 0x80000000;
constexpr std::uint32_t kMayQuery = 1;
constexpr std::uint32_t kMaySet = 2;
constexpr std::u16string_view kSeparator = u"\\";
constexpr int kHex = 16;

using Sections = std::vector<SettingsFile::Section>;

std::u16string ValueText(std::int32_t type, std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text = std::to_string(type) + ":";
  for (const char byte : bytes) {
    text += kDigits[static_cast<unsigned char>(byte) >> 4];
    text += kDigits[static_cast<unsigned char>(byte) & 0xF];
  }
  return FromUtf8(text);
}

struct Value {
  std::int32_t type = 0;
  std::string bytes;
};

/// Nothing for a text that ValueText does not write.
std::optional<Value> ParseValue(std::u16string_view text) {
  const std::string ascii = ToUtf8(text);
  const char* const end = ascii.data() + ascii.size();
  Value value;
  const char* at = std::from_chars(ascii.data(), end, value.type).ptr;
  if (at == ascii.data() || at == end || *at++ != ':' || (end - at) % 2 != 0) return std::nullopt;
  for (; at != end; at += 2) {
    unsigned char byte = 0;
    if (std::from_chars(at, at + 2, byte, kHex).ptr != at + 2) return std::nullopt;
    value.bytes += static_cast<char>(byte);
  }
  return value;
}

auto FindSection(Sections& sections, std::u16string_view root, std::u16string_view path) {
  return std::ranges::find_if(
      sections, [&](const auto& section) { return section.group == root && EqualsNoCaseAscii(section.name, path); });
}

bool HasKeysBelow(const Sections& sections, std::u16string_view root, std::u16string_view path) {
  return std::ranges::any_of(sections, [&](const auto& section) {
    const std::u16string_view name = section.name;
    return section.group == root && name.size() > path.size() && name[path.size()] == kSeparator[0] &&
           EqualsNoCaseAscii(name.substr(0, path.size()), path);
  });
}

auto FindValue(SettingsFile::Section& section, std::u16string_view name) {
  return std::ranges::find_if(section.values, [&](const auto& value) { return EqualsNoCaseAscii(value.first, name); });
}

/// The section of a key, made with those of the keys above it when it is missing.
SettingsFile::Section& Make(Sections& sections, const std::u16string& root, const std::u16string& path) {
  if (const auto found = FindSection(sections, root, path); found != sections.end()) return *found;
  const std::size_t last = path.rfind(kSeparator);
  if (last != std::u16string::npos) Make(sections, root, path.substr(0, last));
  return sections.emplace_back(SettingsFile::Section{root, path, {}});
}

/// Runs `action`, which gives a status, on the sections of the file.
template <class Action>
std::int32_t Read(const std::string& path, Action action) {
  SettingsFile file(path);
  if (!SkipErrors([&] { file.Read(); })) return kCorrupt;
  return action(file.Read());
}

/// The same, and what it changed lasts when it succeeds.
template <class Action>
std::int32_t Change(const std::string& path, Action action) {
  SettingsFile file(path);
  if (!SkipErrors([&] { file.Read(); })) return kCorrupt;
  const std::int32_t status = action(file.Read());
  if (status != kDone) return status;
  return SkipErrors([&] { file.Write(); }) ? kDone : kAccessDenied;
}

}  // namespace

FileRegistryStore::FileRegistryStore(std::string path, const CodePage& page) : path_(std::move(path)), page_(page) {
  std::uint32_t key = kFirstRoot;
  for (const std::u16string_view root : kRoots) {
    open_[static_cast<RegistryKey>(key++)] = {std::u16string(root), {}, kMayQuery | kMaySet};
  }
}

std::u16string FileRegistryStore::Decoded(std::string_view bytes) const {
  std::u16string text;
  page_.Decode(bytes, text);
  return text;
}

std::int32_t FileRegistryStore::Below(RegistryKey key, std::string_view subKey, Place& place) const {
  const auto found = open_.find(key);
  if (found == open_.end()) return kInvalidHandle;
  place = found->second;
  if (subKey.empty()) return kDone;
  const std::u16string path = Decoded(subKey);
  const auto parts = Split(path, kSeparator);
  if (std::ranges::any_of(parts, [](std::u16string_view part) { return part.empty(); })) return kBadPath;
  if (!place.path.empty()) place.path += kSeparator;
  place.path += path;
  return kDone;
}

RegistryKey FileRegistryStore::Enter(Place place, std::uint32_t access) {
  place.access = access;
  open_[++last_] = std::move(place);
  return last_;
}

std::int32_t FileRegistryStore::OpenKey(RegistryKey key, std::string_view subKey, std::uint32_t access,
                                        RegistryKey& result) {
  Place place;
  std::int32_t status = Below(key, subKey, place);
  if (status == kDone && !place.path.empty()) {
    status = Read(path_, [&](Sections& sections) {
      return FindSection(sections, place.root, place.path) == sections.end() ? kNotFound : kDone;
    });
  }
  if (status == kDone) result = Enter(std::move(place), access);
  return status;
}

std::int32_t FileRegistryStore::CreateKey(RegistryKey key, std::string_view subKey, std::uint32_t, std::uint32_t access,
                                          bool, RegistryKey& result) {
  Place place;
  std::int32_t status = Below(key, subKey, place);
  if (status == kDone) {
    status = Change(path_, [&](Sections& sections) {
      Make(sections, place.root, place.path);
      return kDone;
    });
  }
  if (status == kDone) result = Enter(std::move(place), access);
  return status;
}

template <class Action>
std::int32_t FileRegistryStore::OnKey(RegistryKey key, std::uint32_t access, Action action) const {
  const auto found = open_.find(key);
  if (found == open_.end()) return kInvalidHandle;
  const Place& place = found->second;
  if ((place.access & access) == 0) return kAccessDenied;
  const auto onSection = [&](Sections& sections) {
    auto section = FindSection(sections, place.root, place.path);
    if (section == sections.end() && !place.path.empty()) return kNotFound;
    if (section == sections.end()) section = sections.insert(section, {place.root, {}, {}});
    return action(*section);
  };
  return access == kMaySet ? Change(path_, onSection) : Read(path_, onSection);
}

std::int32_t FileRegistryStore::QueryValue(RegistryKey key, std::string_view name, std::int32_t& type, char* data,
                                           std::size_t& size) {
  return OnKey(key, kMayQuery, [&](SettingsFile::Section& section) {
    const auto found = FindValue(section, Decoded(name));
    if (found == section.values.end()) return kNotFound;
    const auto value = ParseValue(found->second);
    if (!value) return kCorrupt;
    const bool fits = data == nullptr || size >= value->bytes.size();
    type = value->type;
    size = value->bytes.size();
    if (fits && data != nullptr) std::ranges::copy(value->bytes, data);
    return fits ? kDone : kMoreData;
  });
}

std::int32_t FileRegistryStore::SetValue(RegistryKey key, std::string_view name, std::int32_t type,
                                         std::string_view data) {
  return OnKey(key, kMaySet, [&](SettingsFile::Section& section) {
    const std::u16string wanted = Decoded(name);
    auto value = FindValue(section, wanted);
    if (value == section.values.end()) value = section.values.insert(value, {wanted, {}});
    value->second = ValueText(type, data);
    return kDone;
  });
}

std::int32_t FileRegistryStore::DeleteValue(RegistryKey key, std::string_view name) {
  return OnKey(key, kMaySet, [&](SettingsFile::Section& section) {
    const auto value = FindValue(section, Decoded(name));
    if (value == section.values.end()) return kNotFound;
    section.values.erase(value);
    return kDone;
  });
}

std::int32_t FileRegistryStore::DeleteKey(RegistryKey key, std::string_view subKey) {
  Place place;
  const std::int32_t status = Below(key, subKey, place);
  if (status != kDone) return status;
  return Change(path_, [&](Sections& sections) {
    const auto section = FindSection(sections, place.root, place.path);
    if (section == sections.end()) return kNotFound;
    if (place.path.empty() || HasKeysBelow(sections, place.root, place.path)) return kAccessDenied;
    sections.erase(section);
    return kDone;
  });
}

std::int32_t FileRegistryStore::CloseKey(RegistryKey key) {
  const auto found = open_.find(key);
  if (found == open_.end()) return kInvalidHandle;
  if (key >= 0) open_.erase(found);  // the root keys stay
  return kDone;
}

}  // namespace quorvane::native

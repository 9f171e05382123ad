#include "windows/com/Registration.h"

#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include "addin/core/RegistrationData.h"
#include "windows/com/RegistryKey.h"

namespace quorvane::com {

namespace {

using Text = std::u16string;

/// One value as it is registered, below HKEY_CURRENT_USER.
struct Entry {
  Text key;
  Text value;  ///< empty: the key's own
  std::variant<Text, std::uint32_t> data;
};

constexpr std::uint32_t kLoadedAtStartup = 3;
/// OLEMISC: drawn anew at a new size, no links into it, active from inside out and while visible, site before state.
constexpr std::u16string_view kMiscStatus = u"131473";

void AddClass(std::vector<Entry>& entries, const registration::Class& known, const Text& file) {
  const Text classes = u"Software\\Classes\\";
  const Text progId = classes + Text(known.progId);
  const Text classId = classes + u"CLSID\\" + Text(known.classId);
  entries.push_back({progId, u"", Text(known.name)});
  entries.push_back({progId + u"\\CLSID", u"", Text(known.classId)});
  entries.push_back({classId, u"", Text(known.name)});
  entries.push_back({classId + u"\\ProgID", u"", Text(known.progId)});
  entries.push_back({classId + u"\\Programmable", u"", Text()});
  entries.push_back({classId + u"\\InprocServer32", u"", file});
  entries.push_back({classId + u"\\InprocServer32", u"ThreadingModel", Text(u"Apartment")});
}

void AddControl(std::vector<Entry>& entries, const registration::Class& known) {
  const Text classId = u"Software\\Classes\\CLSID\\" + Text(known.classId);
  entries.push_back({classId + u"\\Control", u"", Text()});
  entries.push_back({classId + u"\\MiscStatus", u"", Text(u"0")});
  entries.push_back({classId + u"\\MiscStatus\\1", u"", Text(kMiscStatus)});
}

void AddToHost(std::vector<Entry>& entries) {
  const Text key = Text(registration::kHostKey) + u"\\" + Text(registration::kHostAddIns) + u"\\" +
                   Text(registration::kConnect.progId);
  entries.push_back({key, u"FriendlyName", Text(registration::kDisplayName)});
  entries.push_back({key, u"Description", Text(registration::kDescription)});
  entries.push_back({key, u"LoadBehavior", kLoadedAtStartup});
  entries.push_back({key, u"CommandLineSafe", std::uint32_t{0}});
}

/// All of them; a key before those below it.
std::vector<Entry> Entries(const Text& file) {
  std::vector<Entry> entries;
  AddClass(entries, registration::kConnect, file);
  AddClass(entries, registration::kResultDialog, file);
  AddControl(entries, registration::kResultDialog);
  AddToHost(entries);
  return entries;
}

}  // namespace

void RegisterServer(const Text& file) {
  for (const Entry& entry : Entries(file)) {
    if (const auto* text = std::get_if<Text>(&entry.data)) {
      WriteText(HKEY_CURRENT_USER, entry.key, entry.value, *text);
    } else {
      WriteNumber(HKEY_CURRENT_USER, entry.key, entry.value, std::get<std::uint32_t>(entry.data));
    }
  }
}

void UnregisterServer() {
  const std::vector<Entry> entries = Entries({});
  for (const Entry& entry : entries) DeleteValue(HKEY_CURRENT_USER, entry.key, entry.value);
  for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
    DeleteKeyIfEmpty(HKEY_CURRENT_USER, entry->key);
  }
}

}  // namespace quorvane::com

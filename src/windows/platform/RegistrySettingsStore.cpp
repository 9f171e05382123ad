// The registry has no transactions on every Windows that this runs on, so a Commit first writes what it is going to do
// into a key of its own, the journal, and marks that as complete last; then it does it, and drops the journal. Whoever
// finds a complete journal does its work first; one that is not complete was never promised and goes.
//
// The journal: for each changed section a subkey with the section's key as the text "Key" and, when the section is to
// exist, a subkey "Values".
#include "windows/platform/RegistrySettingsStore.h"

#include <algorithm>
#include <optional>

#include "base/Error.h"
#include "base/Text.h"
#include "windows/com/Win32.h"
#include "windows/platform/RegistryNode.h"

namespace quorvane::windows {

namespace {

constexpr char16_t kJournal[] = u"Quorvane (pending)";
constexpr char16_t kComplete[] = u"Complete";
constexpr char16_t kKey[] = u"Key";
constexpr char16_t kValues[] = u"Values";

std::u16string Below(const std::u16string& key, const std::u16string& name) {
  return key + u"\\" + name;
}

std::u16string Upper(std::u16string text) {
  ::CharUpperBuffW(reinterpret_cast<wchar_t*>(text.data()), static_cast<DWORD>(text.size()));
  return text;
}

std::optional<std::u16string> TextOf(const RegistryNode& node, const std::u16string& name) {
  for (const auto& [known, text] : node.Texts()) {
    if (known == name) return text;
  }
  return std::nullopt;
}

}  // namespace

bool RegistrySettingsStore::NoCase::operator()(const std::u16string& a, const std::u16string& b) const {
  return Upper(a) < Upper(b);
}

RegistrySettingsStore::RegistrySettingsStore(std::u16string root) : root_(std::move(root)) {}

RegistrySettingsStore::Section& RegistrySettingsStore::Of(std::u16string_view appName, std::u16string_view section) {
  const std::u16string key = Below(std::u16string(appName), std::u16string(section));
  if (const auto found = sections_.find(key); found != sections_.end()) return found->second;
  Recover();
  Section read;
  if (const auto node = RegistryNode::Open(HKEY_CURRENT_USER, Below(root_, key))) {
    read.exists = true;
    for (auto& [name, text] : node->Texts()) read.values[name] = text;
  }
  return sections_[key] = std::move(read);
}

std::u16string RegistrySettingsStore::GetSetting(std::u16string_view appName, std::u16string_view section,
                                                 std::u16string_view key, std::u16string_view defaultValue) {
  const Values& values = Of(appName, section).values;
  const auto found = values.find(std::u16string(key));
  return found != values.end() ? found->second : std::u16string(defaultValue);
}

void RegistrySettingsStore::SaveSetting(std::u16string_view appName, std::u16string_view section,
                                        std::u16string_view key, std::u16string_view value) {
  Section& target = Of(appName, section);
  target.values[std::u16string(key)] = value;
  target.exists = target.changed = true;
}

void RegistrySettingsStore::DeleteSetting(std::u16string_view appName, std::u16string_view section) {
  Section& target = Of(appName, section);
  if (!target.exists) RaiseError(ErrorNumber::InvalidProcedureCall);
  target.values.clear();
  target.exists = false;
  target.changed = true;
}

void RegistrySettingsStore::Commit() {
  if (std::ranges::none_of(sections_, [](const auto& entry) { return entry.second.changed; })) return;
  if (toKeep_) KeepCopy(std::u16string(toKeep_->first), std::u16string(toKeep_->second));
  Recover();
  WriteJournal();
  CarryOut();
  sections_.clear();
}

std::u16string RegistrySettingsStore::KeepCopy(std::u16string_view appName, std::u16string_view section) {
  toKeep_.emplace(appName, section);
  Recover();
  const std::u16string key = Below(Below(root_, std::u16string(appName)), std::u16string(section));
  Section kept;
  kept.values = Stored(key);
  std::u16string copy;
  for (std::int64_t number = 1; copy.empty() && !kept.values.empty(); ++number) {
    const std::u16string name = key + u".damaged" + (number == 1 ? u"" : u"-" + ToText(number));
    const Values there = Stored(name);
    if (!there.empty() && there != kept.values) continue;
    if (there.empty()) WriteSection(name, kept);
    copy = u"HKEY_CURRENT_USER\\" + name;
  }
  toKeep_.reset();
  return copy;
}

RegistrySettingsStore::Values RegistrySettingsStore::Stored(const std::u16string& key) const {
  Values values;
  if (const auto node = RegistryNode::Open(HKEY_CURRENT_USER, key)) {
    for (auto& [name, text] : node->Texts()) values[name] = text;
  }
  return values;
}

void RegistrySettingsStore::WriteJournal() {
  const std::u16string journal = Below(root_, kJournal);
  std::int64_t number = 0;
  for (const auto& [key, section] : sections_) {
    if (!section.changed) continue;
    const std::u16string entry = Below(journal, ToText(++number));
    RegistryNode::Create(HKEY_CURRENT_USER, entry).SetText(kKey, key);
    if (section.exists) WriteSection(Below(entry, kValues), section);
  }
  RegistryNode node = RegistryNode::Create(HKEY_CURRENT_USER, journal);
  node.SetText(kComplete, u"1");
  node.Flush();
}

void RegistrySettingsStore::WriteSection(const std::u16string& key, const Section& section) const {
  RegistryNode node = RegistryNode::Create(HKEY_CURRENT_USER, key);
  for (const auto& [name, text] : node.Texts()) {
    if (!section.values.contains(name)) node.Delete(name);
  }
  for (const auto& [name, text] : section.values) node.SetText(name, text);
}

/// Does what a complete journal says, as often as it takes.
void RegistrySettingsStore::CarryOut() {
  const std::u16string journal = Below(root_, kJournal);
  const auto node = RegistryNode::Open(HKEY_CURRENT_USER, journal);
  if (!node) return;
  for (const std::u16string& number : node->SubKeys()) {
    const std::u16string path = Below(journal, number);
    const auto entry = RegistryNode::Open(HKEY_CURRENT_USER, path);
    const auto key = entry ? TextOf(*entry, kKey) : std::nullopt;
    if (!key) continue;
    if (RegistryNode::Open(HKEY_CURRENT_USER, Below(path, kValues))) {
      Section section;
      section.values = Stored(Below(path, kValues));
      WriteSection(Below(root_, *key), section);
    } else {
      RegistryNode::DeleteTree(HKEY_CURRENT_USER, Below(root_, *key));
    }
  }
  RegistryNode::DeleteTree(HKEY_CURRENT_USER, journal);
}

/// What a process left that ended in the middle of a Commit.
void RegistrySettingsStore::Recover() {
  const std::u16string journal = Below(root_, kJournal);
  const auto node = RegistryNode::Open(HKEY_CURRENT_USER, journal);
  if (!node) return;
  if (TextOf(*node, kComplete)) {
    CarryOut();
  } else {
    RegistryNode::DeleteTree(HKEY_CURRENT_USER, journal);
  }
}

}  // namespace quorvane::windows

#include "native/settings/FileSettingsStore.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "native/settings/MergeSettings.h"

namespace quorvane::native {

namespace {

auto Find(std::vector<SettingsFile::Section>& sections, std::u16string_view appName, std::u16string_view name) {
  return std::ranges::find_if(sections, [&](const auto& s) { return s.group == appName && s.name == name; });
}

}  // namespace

FileSettingsStore::FileSettingsStore(std::string path, std::set<std::u16string> lists)
    : path_(path), lists_(std::move(lists)), file_(std::move(path)) {}

std::u16string FileSettingsStore::GetSetting(std::u16string_view appName, std::u16string_view section,
                                             std::u16string_view key, std::u16string_view defaultValue) {
  auto& sections = file_.Read();
  if (const auto found = Find(sections, appName, section); found != sections.end()) {
    for (const auto& [name, value] : found->values) {
      if (name == key) return value;
    }
  }
  return std::u16string(defaultValue);
}

void FileSettingsStore::SaveSetting(std::u16string_view appName, std::u16string_view section, std::u16string_view key,
                                    std::u16string_view value) {
  auto& sections = file_.ReadOrReplace();
  if (!changed_) base_ = sections;
  changed_ = true;
  auto target = Find(sections, appName, section);
  if (target == sections.end()) {
    target = sections.insert(target, {std::u16string(appName), std::u16string(section), {}});
  }
  for (auto& [name, old] : target->values) {
    if (name == key) {
      old = value;
      return;
    }
  }
  target->values.emplace_back(key, value);
}

void FileSettingsStore::DeleteSetting(std::u16string_view appName, std::u16string_view section) {
  auto& sections = file_.ReadOrReplace();
  const auto found = Find(sections, appName, section);
  if (found == sections.end()) RaiseError(ErrorNumber::InvalidProcedureCall);
  if (!changed_) base_ = sections;
  changed_ = true;
  sections.erase(found);
}

/// A file that cannot be read has nothing to keep, and one that is gone takes nothing away.
void FileSettingsStore::MergeWithOthers() {
  SettingsFile now(path_);
  if (!SkipErrors([&] { now.Read(); })) return;
  if (now.Read().empty()) return;
  auto& sections = file_.ReadOrReplace();
  sections = MergeSettings(base_, sections, now.Read(), lists_);
  base_ = now.Read();
}

void FileSettingsStore::Commit() {
  if (!changed_) return;
  MergeWithOthers();
  file_.Write();
  changed_ = false;
}

std::u16string FileSettingsStore::KeepCopy(std::u16string_view, std::u16string_view) {
  return FromUtf8(file_.KeepCopy());
}

}  // namespace quorvane::native

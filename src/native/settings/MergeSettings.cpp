#include "native/settings/MergeSettings.h"

#include <algorithm>
#include <optional>

#include "base/Text.h"

namespace quorvane::native {

namespace {

using Sections = std::vector<SettingsFile::Section>;
using Value = std::optional<std::u16string>;

Value Find(const Sections& sections, const SettingsFile::Section& named, const std::u16string& key) {
  for (const auto& section : sections) {
    if (section.group != named.group || section.name != named.name) continue;
    const auto found = std::ranges::find(section.values, key, [](const auto& value) { return value.first; });
    if (found != section.values.end()) return found->second;
  }
  return std::nullopt;
}

bool Holds(const Sections& sections, const SettingsFile::Section& named, const std::u16string& key) {
  return Find(sections, named, key).has_value();
}

/// Makes what is missing.
void Set(Sections& sections, const SettingsFile::Section& named, const std::u16string& key,
         const std::u16string& text) {
  auto section =
      std::ranges::find_if(sections, [&](const auto& s) { return s.group == named.group && s.name == named.name; });
  if (section == sections.end()) section = sections.insert(section, {named.group, named.name, {}});
  const auto value = std::ranges::find(section->values, key, [](const auto& v) { return v.first; });
  if (value != section->values.end()) {
    value->second = text;
  } else {
    section->values.emplace_back(key, text);
  }
}

std::u16string JoinLists(std::u16string_view base, const std::u16string& mine, std::u16string_view theirs) {
  const auto old = Split(base, kCrLf);
  const auto own = Split(mine, kCrLf);
  std::u16string joined = mine;
  for (const std::u16string_view line : Split(theirs, kCrLf)) {
    if (line.empty() || std::ranges::count(old, line) > 0 || std::ranges::count(own, line) > 0) continue;
    if (!joined.empty()) joined += kCrLf;
    joined += line;
  }
  return joined;
}

void RemoveWhatIsGone(Sections& merged, const Sections& base, const Sections& mine) {
  for (auto& section : merged) {
    std::erase_if(section.values, [&](const auto& value) {
      return Holds(base, section, value.first) && !Holds(mine, section, value.first);
    });
  }
  std::erase_if(merged, [](const auto& section) { return section.values.empty(); });
}

}  // namespace

Sections MergeSettings(const Sections& base, const Sections& mine, const Sections& theirs,
                       const std::set<std::u16string>& lists) {
  Sections merged = theirs;
  RemoveWhatIsGone(merged, base, mine);
  for (const auto& section : mine) {
    for (const auto& [key, text] : section.values) {
      if (Find(mine, section, key) != text) continue;  // a key that comes again: its first text counts
      const Value before = Find(base, section, key);
      if (before == text) continue;
      const Value other = Find(theirs, section, key);
      const bool join = other && other != before && lists.contains(key);
      Set(merged, section, key, join ? JoinLists(before.value_or(u""), text, *other) : text);
    }
  }
  return merged;
}

}  // namespace quorvane::native

#include "native/settings/IniText.h"

#include <algorithm>

namespace quorvane::native {

namespace {

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool SameName(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](char x, char y) { return lower(x) == lower(y); });
}

/// The name in a section's header; nothing for any other line. The last bracket ends it: the byte of a bracket can be
/// the second half of a character.
std::optional<std::string_view> SectionName(std::string_view line) {
  const std::string_view text = Trim(line);
  const std::size_t end = text.rfind(']');
  if (!text.starts_with('[') || end == std::string_view::npos) return std::nullopt;
  return Trim(text.substr(1, end - 1));
}

std::optional<std::string_view> KeyName(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (Trim(line).starts_with(';') || equals == std::string_view::npos) return std::nullopt;
  return Trim(line.substr(0, equals));
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted =
      value.size() > 1 && (value.front() == '"' || value.front() == '\'') && value.front() == value.back();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

IniText::IniText(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t feed = bytes.find('\n');
    const std::size_t length = std::min(feed, bytes.size() - 1) + 1;
    std::string_view line = bytes.substr(0, length);
    bytes.remove_prefix(length);
    const std::size_t endLength = feed == std::string_view::npos ? 0 : line.ends_with("\r\n") ? 2 : 1;
    const std::string_view end = line.substr(line.size() - endLength);
    line.remove_suffix(endLength);
    lines_.push_back({std::string(line), std::string(end)});
  }
  if (!lines_.empty() && !lines_.front().end.empty()) usualEnd_ = lines_.front().end;
}

std::string IniText::Bytes() const {
  std::string bytes;
  for (const Line& line : lines_) bytes += line.text + line.end;
  return bytes;
}

std::optional<IniText::Range> IniText::Section(std::string_view name) const {
  const auto isHeader = [](const Line& line) { return SectionName(line.text).has_value(); };
  const auto header = std::find_if(lines_.begin(), lines_.end(), [&](const Line& line) {
    const auto found = SectionName(line.text);
    return found && SameName(*found, name);
  });
  if (header == lines_.end()) return std::nullopt;
  const auto last = std::find_if(header + 1, lines_.end(), isHeader);
  return Range{static_cast<std::size_t>(header - lines_.begin()) + 1, static_cast<std::size_t>(last - lines_.begin())};
}

std::optional<std::size_t> IniText::Key(std::string_view section, std::string_view key) const {
  const auto range = Section(section);
  for (std::size_t i = range ? range->first : 0; range && i < range->last; ++i) {
    const auto found = KeyName(lines_[i].text);
    if (found && SameName(*found, key)) return i;
  }
  return std::nullopt;
}

std::optional<std::string> IniText::Get(std::string_view section, std::string_view key) const {
  const auto place = Key(section, key);
  if (!place) return std::nullopt;
  const std::string& line = lines_[*place].text;
  return std::string(WithoutQuotes(Trim(std::string_view(line).substr(line.find('=') + 1))));
}

void IniText::Set(std::string_view section, std::string_view key, std::string_view value) {
  if (const auto place = Key(section, key)) {
    std::string& line = lines_[*place].text;
    line.resize(line.find('=') + 1);
    line += value;
    return;
  }
  auto range = Section(section);
  if (!range) {
    Insert(lines_.size(), "[" + std::string(section) + "]");
    range = Range{lines_.size(), lines_.size()};
  }
  std::size_t place = range->last;  // after the last line of the section that is not blank
  while (place > range->first && Trim(lines_[place - 1].text).empty()) --place;
  Insert(place, std::string(key) + "=" + std::string(value));
}

void IniText::Insert(std::size_t place, const std::string& text) {
  if (place > 0 && lines_[place - 1].end.empty()) lines_[place - 1].end = usualEnd_;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place), {text, usualEnd_});
}

void IniText::RemoveKey(std::string_view section, std::string_view key) {
  if (const auto place = Key(section, key)) lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*place));
}

void IniText::RemoveSection(std::string_view section) {
  const auto range = Section(section);
  if (!range) return;
  lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(range->first) - 1,
               lines_.begin() + static_cast<std::ptrdiff_t>(range->last));
}

}  // namespace quorvane::native

#include "native/settings/SettingsFile.h"

#include <charconv>
#include <filesystem>
#include <optional>
#include <system_error>

#include "base/Error.h"
#include "base/FilePath.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "native/files/AtomicFile.h"
#include "native/files/DamagedCopy.h"
#include "native/files/FileBytes.h"

namespace quorvane::native {

// One value a line, every unit that could be taken for something else escaped, so that any UTF-16 text, a lone
// surrogate too, comes back as it was. The file is read once and always written whole, beside itself and then moved
// over. A file that cannot be understood is never lost: before the first write a copy of it is kept, ".damaged".

namespace {

constexpr std::size_t kHexDigits = 4;

void AppendHex(char16_t unit, std::u16string& out) {
  constexpr std::u16string_view kDigits = u"0123456789abcdef";
  out += u"\\u";
  for (int shift = 12; shift >= 0; shift -= 4) out += kDigits[static_cast<std::size_t>(unit >> shift & 0xF)];
}

bool IsLoneSurrogate(std::u16string_view text, std::size_t i) {
  if (IsHighSurrogate(text[i])) return i + 1 == text.size() || !IsLowSurrogate(text[i + 1]);
  return IsLowSurrogate(text[i]) && (i == 0 || !IsHighSurrogate(text[i - 1]));
}

/// As UTF-8 without anything that ends a line; the units of `special` are escaped too.
std::string Escaped(std::u16string_view text, std::u16string_view special) {
  std::u16string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (c < 0x20 || c == 0x7F || special.find(c) != std::u16string_view::npos || IsLoneSurrogate(text, i)) {
      AppendHex(c, out);
    } else if (c == u'\\') {
      out += u"\\\\";
    } else {
      out += c;
    }
  }
  return ToUtf8(out);
}

/// The opposite; nothing for a text that Escaped does not write.
std::optional<std::u16string> Unescaped(std::string_view utf8) {
  const std::u16string text = FromUtf8(utf8);
  std::u16string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'\\') {
      out += text[i];
    } else if (text.compare(i, 2, u"\\\\") == 0) {
      out += text[++i];
    } else {
      const std::string digits = ToUtf8(std::u16string_view(text).substr(i).substr(0, kHexDigits + 2));
      unsigned unit = 0;
      if (digits.size() != kHexDigits + 2 || digits[1] != 'u') return std::nullopt;
      const auto [end, failed] = std::from_chars(digits.data() + 2, digits.data() + digits.size(), unit, 16);
      if (failed != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
      out += static_cast<char16_t>(unit);
      i += kHexDigits + 1;
    }
  }
  return out;
}

constexpr std::u16string_view kSpecialInSection = u"/";
constexpr std::u16string_view kSpecialInKey = u"=[#";

}  // namespace

SettingsFile::SettingsFile(std::string path) : path_(std::move(path)) {}

std::vector<SettingsFile::Section>& SettingsFile::Read() {
  if (read_) return sections_;
  sections_.clear();
  const FileBytes file = ReadFileBytes(path_);
  std::error_code failed;
  if (file.error != 0 && (std::filesystem::exists(FilePath(path_), failed) || failed)) {
    RaiseError(ErrorNumber::PathFileAccess, u"Path/File access error: " + FromUtf8(path_));
  }
  Parse(file.bytes);
  read_ = true;
  return sections_;
}

std::vector<SettingsFile::Section>& SettingsFile::ReadOrReplace() {
  if (SkipErrors([&] { Read(); })) return sections_;
  sections_.clear();
  read_ = true;
  toKeep_ = true;
  return sections_;
}

void SettingsFile::Write() {
  std::string bytes = "# Settings, one value a line; written by the program.\n";
  for (const Section& section : sections_) {
    bytes += "[" + Escaped(section.group, kSpecialInSection) + "/" + Escaped(section.name, kSpecialInSection) + "]\n";
    for (const auto& [key, value] : section.values) {
      bytes += Escaped(key, kSpecialInKey) + "=" + Escaped(value, {}) + "\n";
    }
  }
  const std::filesystem::path folder = FilePath(path_).parent_path();
  if (!folder.empty()) std::filesystem::create_directories(folder);
  if (toKeep_) KeepCopy();
  WriteFileWhole(path_, bytes);
}

std::string SettingsFile::KeepCopy() {
  toKeep_ = true;
  std::string copy = KeepDamagedCopy(path_);
  toKeep_ = false;
  return copy;
}

void SettingsFile::Parse(std::string_view bytes) {
  for (std::size_t number = 1; !bytes.empty(); ++number) {
    const std::size_t end = bytes.find('\n');
    ParseLine(bytes.substr(0, end), number);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
  }
}

void SettingsFile::ParseLine(std::string_view line, std::size_t number) {
  if (line.empty() || line.front() == '#') return;
  const bool header = line.front() == '[' && line.back() == ']' && line.size() > 1;
  if (header) line = line.substr(1, line.size() - 2);
  const std::size_t middle = line.find(header ? '/' : '=');
  if (middle == std::string_view::npos || (!header && sections_.empty())) FailAt(number);
  const auto left = Unescaped(line.substr(0, middle));
  const auto right = Unescaped(line.substr(middle + 1));
  if (!left || !right) FailAt(number);
  if (header) {
    sections_.push_back({*left, *right, {}});
  } else {
    sections_.back().values.emplace_back(*left, *right);
  }
}

void SettingsFile::FailAt(std::size_t number) const {
  RaiseError(ErrorNumber::InvalidFileFormat,
             u"Invalid file format: " + FromUtf8(path_) + u", line " + ToText(static_cast<std::int64_t>(number)));
}

}  // namespace quorvane::native

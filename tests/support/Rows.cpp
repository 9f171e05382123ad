#include "support/Rows.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "base/Text.h"

namespace quorvane::test {

namespace {

/// Calls `put` with each character of a cell; for one that is written as a number, with true.
template <class Put>
void Decode(std::string_view cell, Put put) {
  if (cell == "\"\"") return;
  for (std::size_t i = 0; i < cell.size(); ++i) {
    if (cell[i] != '\\') {
      put(static_cast<unsigned char>(cell[i]), false);
      continue;
    }
    const char kind = cell.at(++i);
    const std::size_t digits = kind == 'x' ? 2 : kind == 'u' ? 4 : 0;
    if (digits > 0) {
      put(std::stoul(std::string(cell.substr(i + 1, digits)), nullptr, 16), true);
      i += digits;
    } else {
      const std::size_t known = std::string_view("trn\\").find(kind);
      if (known == std::string_view::npos) throw std::runtime_error("no such escape: " + std::string(cell));
      put(static_cast<unsigned char>("\t\r\n\\"[known]), false);
    }
  }
}

bool IsLetter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

}  // namespace

Row::Row(std::string where, std::string_view line) : where_(std::move(where)) {
  while (!line.empty()) {
    const std::size_t tab = std::min(line.find('\t'), line.size());
    cells_.emplace_back(line.substr(0, tab));
    line.remove_prefix(std::min(line.find_first_not_of('\t', tab), line.size()));
  }
}

std::string Row::Bytes(std::size_t cell) const {
  std::string bytes;
  if (cell >= cells_.size()) return bytes;
  Decode(cells_[cell], [&](unsigned long c, bool number) {
    if (number && c > 0xFF) {
      const auto unit = static_cast<char16_t>(c);
      AppendUtf8({&unit, 1}, bytes);
    } else {
      bytes += static_cast<char>(c);
    }
  });
  return bytes;
}

std::u16string Row::Text(std::size_t cell) const {
  std::u16string text;
  std::string plain;
  if (cell >= cells_.size()) return text;
  Decode(cells_[cell], [&](unsigned long c, bool number) {
    if (!number) {
      plain += static_cast<char>(c);
      return;
    }
    text += FromUtf8(plain) + static_cast<char16_t>(c);
    plain.clear();
  });
  return text + FromUtf8(plain);
}

std::int32_t Row::Number(std::size_t cell) const {
  const std::string digits = Bytes(cell);
  return digits.empty() ? 0 : std::stoi(digits);
}

std::vector<std::string> Row::List(std::size_t cell) const {
  std::vector<std::string> parts;
  if (cell >= cells_.size() || cells_[cell] == "\"\"") return parts;
  const std::u16string all = FromUtf8(cells_[cell]);
  for (const auto& part : Split(all, u"|")) parts.push_back(Row({}, ToUtf8(part)).Bytes(0));
  return parts;
}

vbide::Selection Row::Range(std::size_t cell) const {
  std::istringstream numbers(Bytes(cell));
  vbide::Selection range;
  numbers >> range.StartLine >> range.StartColumn >> range.EndLine >> range.EndColumn;
  if (!numbers) throw std::runtime_error("no range: " + where_);
  return range;
}

std::vector<Row> Rows(const std::string& file, const std::string& table) {
  std::ifstream stream(QUORVANE_SOURCE_DIR "/tests/" + file, std::ios::binary);
  std::vector<Row> rows;
  bool inside = false;
  int number = 0;
  for (std::string line; std::getline(stream, line);) {
    ++number;
    const bool named = line.starts_with('[') && std::all_of(line.begin() + 1, line.end() - 1, IsLetter);
    if (named && line.size() > 2 && line.ends_with(']')) {
      inside = line == "[" + table + "]";
    } else if (inside && !line.empty() && !line.starts_with(";;")) {
      rows.emplace_back(file + ":" + std::to_string(number) + ": " + line, line);
    }
  }
  if (rows.empty()) throw std::runtime_error("no rows [" + table + "] in tests/" + file);
  return rows;
}

}  // namespace quorvane::test

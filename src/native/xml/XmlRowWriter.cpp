#include "native/xml/XmlRowWriter.h"

#include <array>
#include <charconv>

#include "native/xml/XmlText.h"

namespace quorvane::native {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// What stands for a byte inside of an attribute; empty where that is the byte itself.
std::string_view Written(char c) {
  switch (c) {
    case '"':
      return "&quot;";
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    case '\t':
      return "&#9;";
    default:
      return static_cast<unsigned char>(c) < 0x20 ? kReplacement : std::string_view();
  }
}

/// U+FFFE or U+FFFF, which XML cannot hold.
bool IsNoCharacter(std::string_view utf8) {
  return utf8.starts_with("\xEF\xBF\xBE") || utf8.starts_with("\xEF\xBF\xBF");
}

void AppendEscaped(std::string_view utf8, std::string& out) {
  static const std::array<bool, 256> special = [] {
    std::array<bool, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i) table[i] = i == 0xEF || !Written(static_cast<char>(i)).empty();
    return table;
  }();
  std::size_t begin = 0;
  for (std::size_t at = 0; at < utf8.size(); ++at) {
    if (!special[static_cast<unsigned char>(utf8[at])]) continue;
    const bool none = IsNoCharacter(utf8.substr(at));
    const std::string_view written = none ? kReplacement : Written(utf8[at]);
    if (written.empty()) continue;
    out.append(utf8.substr(begin, at - begin)).append(written);
    at += none ? 2 : 0;
    begin = at + 1;
  }
  out.append(utf8.substr(begin));
}

}  // namespace

void XmlRowWriter::BeginRow() {
  if (!hasRows_) out_.append("<").append(root_).append(">\n");
  hasRows_ = true;
  out_.append("  <").append(row_);
}

void XmlRowWriter::Text(std::string_view name, std::u16string_view value) {
  ToXmlText(value, utf8_);
  Utf8(name, utf8_);
}

void XmlRowWriter::Number(std::string_view name, std::int32_t value) {
  std::array<char, 12> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  Utf8(name, {digits.data(), end});
}

void XmlRowWriter::Utf8(std::string_view name, std::string_view value) {
  out_.append(" ").append(name).append("=\"");
  AppendEscaped(value, out_);
  out_ += '"';
}

void XmlRowWriter::EndRow() {
  out_ += "/>\n";
}

void XmlRowWriter::Finish() {
  out_.append(hasRows_ ? "</" : "<").append(root_).append(hasRows_ ? ">\n" : "/>\n");
}

std::string_view XmlRowWriter::Take() {
  taken_.swap(out_);
  out_.clear();
  return taken_;
}

}  // namespace quorvane::native

#include "cli/Json.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/Text.h"
#include "native/codepages/AsciiRun.h"

namespace quorvane::cli {

namespace {

std::string Escaped(char c) {
  switch (c) {
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default: {
      constexpr char hex[] = "0123456789abcdef";
      return std::string("\\u00") + hex[(c >> 4) & 0xF] + hex[c & 0xF];
    }
  }
}

constexpr bool IsPlain(char c) {
  return static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\' && c != 0x7F;
}

/// Whether nothing in `utf8` is escaped. A loop without branches: most texts are plain.
bool AllPlain(std::string_view utf8) {
  unsigned escaped = 0;
  for (const char c : utf8) escaped |= IsPlain(c) ? 0U : 1U;
  return escaped == 0;
}

void AppendEscaped(std::string_view utf8, std::string& out) {
  for (std::size_t at = 0; at < utf8.size();) {
    std::size_t end = at;
    while (end < utf8.size() && IsPlain(utf8[end])) ++end;
    out.append(utf8.substr(at, end - at));
    if (end < utf8.size()) out += Escaped(utf8[end++]);
    at = end;
  }
}

}  // namespace

void Json::Value() {
  if (comma_) out_ += ',';
  comma_ = true;
}

Json& Json::BeginObject() {
  Value();
  out_ += '{';
  comma_ = false;
  return *this;
}

Json& Json::EndObject() {
  out_ += '}';
  comma_ = true;
  return *this;
}

Json& Json::BeginArray() {
  Value();
  out_ += '[';
  comma_ = false;
  return *this;
}

Json& Json::EndArray() {
  out_ += ']';
  comma_ = true;
  return *this;
}

Json& Json::Key(std::string_view name) {
  const std::size_t begin = out_.size();
  out_.resize(begin + (comma_ ? 1 : 0) + name.size() + 3);
  char* at = out_.data() + begin;
  if (comma_) *at++ = ',';
  *at++ = '"';
  at = std::ranges::copy(name, at).out;
  *at++ = '"';
  *at = ':';
  comma_ = false;
  return *this;
}

Json& Json::Text(std::u16string_view value) {
  utf8_.clear();
  AppendUtf8(value, utf8_);
  return ValidUtf8(utf8_);
}

Json& Json::ValidUtf8(std::string_view value) {
  Value();
  out_ += '"';
  AllPlain(value) ? void(out_.append(value)) : AppendEscaped(value, out_);
  out_ += '"';
  return *this;
}

Json& Json::Utf8(std::string_view value) {
  const bool ascii = native::AsciiRun(value, 0) == value.size();
  return ascii ? ValidUtf8(value) : Text(FromUtf8(value));
}

Json& Json::Number(std::int64_t value) {
  Value();
  std::array<char, 20> digits{};
  out_.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
  return *this;
}

std::string_view Json::TakeLine() {
  comma_ = false;
  out_ += '\n';
  line_.swap(out_);
  out_.clear();
  return line_;
}

}  // namespace quorvane::cli

#include "cli/Json.h"

#include <utility>

#include "base/Text.h"

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

bool IsPlain(char c) {
  return static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\' && c != 0x7F;
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
  Value();
  out_.append("\"").append(name).append("\":");
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
  AppendEscaped(value, out_);
  out_ += '"';
  return *this;
}

Json& Json::Utf8(std::string_view value) {
  return Text(FromUtf8(value));
}

Json& Json::Number(std::int64_t value) {
  Value();
  out_ += std::to_string(value);
  return *this;
}

std::string Json::Take() {
  comma_ = false;
  return std::exchange(out_, {});
}

}  // namespace quorvane::cli

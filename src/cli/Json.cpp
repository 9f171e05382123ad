#include "cli/Json.h"

#include <utility>

#include "base/Text.h"

namespace quorvane::cli {

namespace {

void AppendEscaped(std::string_view utf8, std::string& out) {
  constexpr char hex[] = "0123456789abcdef";
  for (const char c : utf8) {
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
          out += "\\u00";
          out += hex[(c >> 4) & 0xF];
          out += hex[c & 0xF];
        } else {
          out += c;
        }
    }
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
  Value();
  out_ += '"';
  AppendEscaped(ToUtf8(value), out_);
  out_ += '"';
  return *this;
}

Json& Json::Utf8(std::string_view value) {
  return Text(FromUtf8(value));
}

Json& Json::Number(std::int64_t value) {
  return Digits(ToText(value));
}

Json& Json::Digits(std::u16string_view digits) {
  Value();
  AppendUtf8(digits, out_);
  return *this;
}

std::string Json::Take() {
  comma_ = false;
  return std::exchange(out_, {});
}

}  // namespace quorvane::cli

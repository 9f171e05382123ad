#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane::cli {

/// Writes one JSON value after another into a line of text, in UTF-8. Commas come by themselves.
class Json {
 public:
  Json& BeginObject();
  Json& EndObject();
  Json& BeginArray();
  Json& EndArray();
  Json& Key(std::string_view name);
  Json& Text(std::u16string_view value);
  /// `value` is UTF-8; what is not becomes U+FFFD.
  Json& Utf8(std::string_view value);
  /// The same where all of it surely is UTF-8.
  Json& ValidUtf8(std::string_view value);
  Json& Number(std::int64_t value);

  /// What was written since the last call, and a line feed. Stands until the next call.
  std::string_view TakeLine();

 private:
  void Value();

  std::string out_;
  std::string line_;    ///< that was taken last; the two keep their room
  std::string utf8_;    ///< of the last text
  bool comma_ = false;  ///< the next value is not the first of its container
};

}  // namespace quorvane::cli

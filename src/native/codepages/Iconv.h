#pragma once

#include <iconv.h>

#include <optional>
#include <string>
#include <string_view>

namespace quorvane::native {

/// One character at a time between a charset of the C library and UTF-16, for building tables.
class Iconv {
 public:
  /// `charset` is the C library's name. Raises error 5 when the library lacks it.
  explicit Iconv(const std::string& charset);
  ~Iconv();
  Iconv(const Iconv&) = delete;
  Iconv& operator=(const Iconv&) = delete;

  /// The unit that `bytes` stand for; nothing when they are no single character of the basic plane.
  std::optional<char16_t> Decode(std::string_view bytes) const;
  /// The bytes of a unit, empty when the charset lacks it.
  std::string Encode(char16_t unit) const;

 private:
  iconv_t mhndToText;
  iconv_t mhndToBytes;
};

}  // namespace quorvane::native

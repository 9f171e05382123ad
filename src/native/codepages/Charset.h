#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quorvane::native {

/// One character at a time between a code page of the system and UTF-16, for building tables.
class Charset {
 public:
  /// `page` is Windows' number of the code page. Raises error 5 when the system lacks it.
  explicit Charset(int page);
  ~Charset();
  Charset(const Charset&) = delete;
  Charset& operator=(const Charset&) = delete;

  /// The unit that `bytes` stand for; no value when they are no single character of the basic plane.
  std::optional<char16_t> Decode(std::string_view bytes) const;
  /// The bytes of a unit, empty when the page lacks it.
  std::string Encode(char16_t unit) const;

 private:
  struct Converters;
  std::unique_ptr<Converters> converters_;
};

}  // namespace quorvane::native

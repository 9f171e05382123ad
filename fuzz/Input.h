#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace quorvane::fuzz {

/// What a target gets: some lines that say what to do, and the rest.
class Input {
 public:
  Input(const std::uint8_t* bytes, std::size_t size) : rest_(reinterpret_cast<const char*>(bytes), size) {}

  std::string_view Line() {
    const std::size_t end = rest_.find('\n');
    const std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end == rest_.npos ? rest_.size() : end + 1);
    return line;
  }
  std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

/// A finding.
inline void Expect(bool holds) {
  if (!holds) std::abort();
}

}  // namespace quorvane::fuzz

/// Each file of this folder defines it once; the name is that of the library that calls it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

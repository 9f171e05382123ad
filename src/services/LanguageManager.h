#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane {

/// The texts that a user reads, in the language of the moment.
class LanguageManager {
 public:
  std::int32_t Language = 0;  ///< 0 Chinese (Simplified), 1 English

  /// The text of `id` (101 to 264) in the current language, with "%0", "%1" … filled from `args`. An id without a text
  /// raises error 326.
  std::u16string GetString(std::int32_t id, const std::vector<std::u16string>& args = {}) const;

 private:
  std::int32_t StringBase() const;
};

}  // namespace quorvane

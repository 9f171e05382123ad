#pragma once

#include <cstdint>
#include <string>

namespace quorvane::forms {

/// The font of a control.
struct Font {
  std::u16string Name;  ///< empty: the system's own
  double Size = 9;      ///< points
  bool Bold = false;
  bool Italic = false;
  bool Underline = false;
  bool Strikethrough = false;
  std::int16_t Charset = 0;
  std::int16_t Weight = 400;  ///< 400 normal, 700 bold

  bool operator==(const Font&) const = default;
};

}  // namespace quorvane::forms

#pragma once

#include <cstdint>
#include <string_view>

#include "platform/forms/Font.h"

namespace quorvane::forms {

/// How much room text takes on the screen, in pixels. This one knows no font and counts characters by a fixed cell; a
/// view puts one of its own in its place.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;

  virtual std::int32_t LineHeight(const Font& font) const;
  /// `line` holds no line breaks; a tab takes what it takes where the text is shown.
  virtual std::int32_t LineWidth(const Font& font, std::u16string_view line) const;

  /// Of a text with line breaks (CR LF, CR or LF): the lines together, and the widest of them. The empty text has one
  /// line.
  std::int32_t TextHeight(const Font& font, std::u16string_view text) const;
  std::int32_t TextWidth(const Font& font, std::u16string_view text) const;
};

}  // namespace quorvane::forms

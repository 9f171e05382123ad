#pragma once

#include <functional>
#include <string_view>

#include "platform/forms/Font.h"
#include "platform/forms/TextMeasurer.h"
#include "windows/forms/Fonts.h"
#include "windows/forms/Win32.h"

namespace quorvane::windows {

/// Measures code as the preview paints it: in the font of codes, a tab to the next of the columns that stand four
/// apart.
class CodeMeasurer final : public forms::TextMeasurer {
 public:
  std::int32_t LineHeight(const forms::Font& font) const override;
  std::int32_t LineWidth(const forms::Font& font, std::u16string_view line) const override;

  // Of the font that is in a context, in pixels.
  static int HeightOfLine(HDC context);
  /// Goes over a text between its tabs from the place `x` on: `take(x, part)` for each part. Gives the place after the
  /// last.
  using Take = std::function<void(int, std::u16string_view)>;
  static int ForEachPart(HDC context, std::u16string_view text, int x, const Take& take);

 private:
  HFONT HandleFor(const forms::Font& font) const;

  mutable forms::Font font_;  ///< asked for last
  mutable FontHandle made_;
};

}  // namespace quorvane::windows

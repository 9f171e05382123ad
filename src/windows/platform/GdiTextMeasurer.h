#pragma once

#include <memory>
#include <string_view>

#include "platform/forms/TextMeasurer.h"

namespace quorvane::windows {

/// Measures text as the window system draws it on the screen. A tab goes on to the next half inch, as in a rich text
/// box.
class GdiTextMeasurer final : public forms::TextMeasurer {
 public:
  GdiTextMeasurer();
  ~GdiTextMeasurer() override;

  std::int32_t LineHeight(const forms::Font& font) const override;
  std::int32_t LineWidth(const forms::Font& font, std::u16string_view line) const override;

 private:
  class Ruler;
  const Ruler& RulerOf(const forms::Font& font) const;

  mutable std::unique_ptr<Ruler> ruler_;  ///< of the font that was asked for last
};

}  // namespace quorvane::windows

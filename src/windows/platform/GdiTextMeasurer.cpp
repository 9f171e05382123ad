#include "windows/platform/GdiTextMeasurer.h"

#include <algorithm>
#include <string>

#include "windows/platform/Fonts.h"
#include "windows/platform/Metrics.h"
#include "windows/platform/WideText.h"

namespace quorvane::windows {

namespace {

constexpr std::size_t kPiece = 4096;  // characters measured at once

}  // namespace

/// A context of the screen with a font selected.
class GdiTextMeasurer::Ruler {
 public:
  explicit Ruler(const forms::Font& wanted)
      : what_(wanted), font_(MakeFont(wanted)), dc_(::CreateCompatibleDC(nullptr)) {
    before_ = ::SelectObject(dc_, font_.Get());
  }
  ~Ruler() {
    ::SelectObject(dc_, before_);
    ::DeleteDC(dc_);
  }
  Ruler(const Ruler&) = delete;
  Ruler& operator=(const Ruler&) = delete;

  const forms::Font& What() const { return what_; }
  HDC Dc() const { return dc_; }

 private:
  forms::Font what_;
  FontHandle font_;
  HDC dc_;
  HGDIOBJ before_ = nullptr;
};

GdiTextMeasurer::GdiTextMeasurer() = default;

GdiTextMeasurer::~GdiTextMeasurer() = default;

const GdiTextMeasurer::Ruler& GdiTextMeasurer::RulerOf(const forms::Font& font) const {
  if (!ruler_ || ruler_->What() != font) ruler_ = std::make_unique<Ruler>(font);
  return *ruler_;
}

std::int32_t GdiTextMeasurer::LineHeight(const forms::Font& font) const {
  TEXTMETRICW metrics{};
  ::GetTextMetricsW(RulerOf(font).Dc(), &metrics);
  return metrics.tmHeight + metrics.tmExternalLeading;
}

std::int32_t GdiTextMeasurer::LineWidth(const forms::Font& font, std::u16string_view line) const {
  const HDC dc = RulerOf(font).Dc();
  const int stop = Dpi() / 2;
  std::int32_t width = 0;
  while (!line.empty()) {
    const std::size_t end = std::min({line.find(u'\t'), line.size(), kPiece});
    SIZE size{};
    const std::u16string piece(line.substr(0, end));
    ::GetTextExtentPoint32W(dc, Wide(piece), static_cast<int>(end), &size);
    width += size.cx;
    line.remove_prefix(end);
    if (line.starts_with(u'\t')) {
      width = (width / stop + 1) * stop;
      line.remove_prefix(1);
    }
  }
  return width;
}

}  // namespace quorvane::windows

#pragma once

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "platform/Canvas.h"

namespace quorvane::test {

/// A canvas that writes down in words what is drawn on it. A character is 10 pixels wide, in bold 12.
class RecordedCanvas final : public Canvas {
 public:
  struct Font final : CanvasFont {
    explicit Font(LogFont made) : log(std::move(made)) {}
    LogFont log;
  };

  std::int32_t LogPixelsY() const override { return 96; }
  std::shared_ptr<CanvasFont> CreateFont(const LogFont& font) override {
    Fonts.push_back(font);
    return std::make_shared<Font>(font);
  }
  std::shared_ptr<CanvasFont> SelectFont(std::shared_ptr<CanvasFont> font) override {
    return std::exchange(font_, std::move(font));
  }
  void SetTextColor(Color color) override { textColor_ = color; }
  void SetBkColor(Color color) override { bkColor_ = color; }
  void FillRect(const CanvasRect& rect, Color color) override {
    if (FailToFill) throw Error(5, u"no brush");
    Drawn.push_back("fill " + Words(rect) + " " + Hex(color));
  }
  void TextOut(std::int32_t x, std::int32_t y, std::u16string_view text) override {
    Drawn.push_back((Bold() ? "bold " : "text ") + std::to_string(x) + "," + std::to_string(y) + " " + Hex(textColor_) +
                    " on " + Hex(bkColor_) + " '" + ToUtf8(text) + "'");
  }
  std::int32_t TextWidth(std::u16string_view text) override {
    return static_cast<std::int32_t>(text.size()) * (Bold() ? 12 : 10);
  }
  void DrawFocusRect(const CanvasRect& rect) override { Drawn.push_back("focus " + Words(rect)); }

  /// What was drawn since the last call, a line each.
  std::string Take() {
    std::string text;
    for (const auto& line : std::exchange(Drawn, {})) text += line + "\n";
    return text;
  }
  bool FontSelected() const { return font_ != nullptr; }

  std::vector<std::string> Drawn;
  std::vector<LogFont> Fonts;  ///< in the order of their making
  bool FailToFill = false;

 private:
  bool Bold() const {
    const auto* font = dynamic_cast<const Font*>(font_.get());
    return font != nullptr && font->log.Weight >= 700;
  }
  static std::string Hex(Color color) {
    std::ostringstream text;
    text << std::hex << color;
    return text.str();
  }
  static std::string Words(const CanvasRect& rect) {
    return std::to_string(rect.Left) + "," + std::to_string(rect.Top) + "-" + std::to_string(rect.Right) + "," +
           std::to_string(rect.Bottom);
  }

  std::shared_ptr<CanvasFont> font_;
  Color textColor_ = 0;
  Color bkColor_ = 0;
};

}  // namespace quorvane::test

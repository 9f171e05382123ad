#include "windows/forms/Fonts.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "windows/forms/Metrics.h"
#include "windows/forms/Window.h"

namespace quorvane::windows {

namespace {

constexpr int kPointsOfInch = 72;

FontHandle dialogFont;

void SetFace(LOGFONTW& font, const std::u16string& name, std::int16_t charSet) {
  if (name.empty()) return;
  const std::size_t length = std::min(name.size(), static_cast<std::size_t>(LF_FACESIZE - 1));
  std::copy_n(name.begin(), length, font.lfFaceName);
  font.lfFaceName[length] = 0;
  font.lfCharSet = static_cast<BYTE>(charSet);
}

FontHandle Make(const LOGFONTW& font) {
  const HFONT made = ::CreateFontIndirectW(&font);
  if (made == nullptr) RaiseLastError(u"CreateFontIndirect");
  return FontHandle(made);
}

}  // namespace

LOGFONTW SystemFont() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  if (::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0)) return metrics.lfMessageFont;
  LOGFONTW font{};
  ::GetObjectW(::GetStockObject(DEFAULT_GUI_FONT), sizeof(font), &font);
  return font;
}

FontHandle MakeFont(const LogFont& font) {
  LOGFONTW wanted = SystemFont();
  SetFace(wanted, font.FaceName, font.CharSet);
  if (font.Height != 0) wanted.lfHeight = font.Height;
  wanted.lfWidth = 0;
  wanted.lfWeight = font.Weight;
  wanted.lfItalic = font.Italic ? 1 : 0;
  wanted.lfUnderline = font.Underline ? 1 : 0;
  wanted.lfStrikeOut = font.StrikeOut ? 1 : 0;
  return Make(wanted);
}

FontHandle MakeFont(const forms::Font& font) {
  LOGFONTW wanted = SystemFont();
  SetFace(wanted, font.Name, font.Charset);
  wanted.lfHeight = -static_cast<LONG>(std::lround(font.Size * Dpi() / kPointsOfInch));
  wanted.lfWidth = 0;
  wanted.lfWeight = font.Bold ? std::max<LONG>(font.Weight, FW_BOLD) : font.Weight;
  wanted.lfItalic = font.Italic ? 1 : 0;
  wanted.lfUnderline = font.Underline ? 1 : 0;
  wanted.lfStrikeOut = font.Strikethrough ? 1 : 0;
  return Make(wanted);
}

HFONT DialogFont() {
  if (!dialogFont) dialogFont = Make(SystemFont());
  return dialogFont.Get();
}

void ForgetFonts() {
  dialogFont = FontHandle();
}

}  // namespace quorvane::windows

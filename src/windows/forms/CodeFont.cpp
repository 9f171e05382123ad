#include "windows/forms/CodeFont.h"

#include <cmath>
#include <cstring>
#include <string>

#include "windows/forms/Metrics.h"
#include "windows/forms/TextSize.h"

namespace quorvane::windows {

namespace {

constexpr int kPointsOfInch = 72;

int CALLBACK NoteFound(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

bool IsInstalled(const std::u16string& name) {
  if (name.empty() || name.size() >= LF_FACESIZE) return false;
  LOGFONTW wanted{};
  wanted.lfCharSet = DEFAULT_CHARSET;
  std::memcpy(wanted.lfFaceName, name.c_str(), (name.size() + 1) * sizeof(wchar_t));
  bool found = false;
  const HDC screen = ::GetDC(nullptr);
  ::EnumFontFamiliesExW(screen, &wanted, &NoteFound, reinterpret_cast<LPARAM>(&found), 0);
  ::ReleaseDC(nullptr, screen);
  return found;
}

FontHandle Make(const forms::Font& wanted, const std::u16string& name, BYTE charset) {
  LOGFONTW font{};
  font.lfHeight = -static_cast<LONG>(std::lround(wanted.Size * Dpi() / kPointsOfInch));
  font.lfWeight = wanted.Weight;
  font.lfStrikeOut = wanted.Strikethrough ? 1 : 0;
  font.lfCharSet = charset;
  font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  std::memcpy(font.lfFaceName, name.c_str(), (name.size() + 1) * sizeof(wchar_t));
  return FontHandle(::CreateFontIndirectW(&font));
}

/// A font of that name may be another one that the system has put in its place.
bool IsFixed(HFONT font) {
  const LONG blanks = SizeOfLine(font, u"    ").cx;
  return SizeOfLine(font, u"iiii").cx == blanks && SizeOfLine(font, u"MMMM").cx == blanks;
}

}  // namespace

FontHandle CodeFont(const forms::Font& wanted) {
  if (IsInstalled(wanted.Name)) {
    FontHandle asked = Make(wanted, wanted.Name, static_cast<BYTE>(wanted.Charset));
    if (IsFixed(asked.Get())) return asked;
  }
  return Make(wanted, IsInstalled(u"Consolas") ? u"Consolas" : u"Courier New", ANSI_CHARSET);
}

}  // namespace quorvane::windows

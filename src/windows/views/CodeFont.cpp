#include "windows/views/CodeFont.h"

#include <cstring>
#include <string>

#include "windows/platform/WideText.h"

namespace quorvane::windows {

namespace {

constexpr std::int16_t kAnyCharset = 1;

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

}  // namespace

FontHandle CodeFont(const Font& wanted) {
  Font made = wanted;
  if (!IsInstalled(made.Name)) {
    made.Name = IsInstalled(u"Consolas") ? u"Consolas" : u"Courier New";
    made.Charset = kAnyCharset;
  }
  return MakeFont(made);
}

}  // namespace quorvane::windows

#include "addin/core/Utilities.h"

#include <cmath>

#include "addin/core/Globals.h"
#include "base/Checked.h"
#include "base/Text.h"
#include "platform/CodePage.h"
#include "platform/NativeWindows.h"
#include "platform/Platform.h"
#include "platform/forms/OptionGroup.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

constexpr std::size_t kTitleBytes = 254;  // a buffer of 255 less its end

NativeWindows& Native() {
  return ThePlatform().Windows();
}

/// Half goes to even; error 6 beyond 32 bits.
std::int32_t Rounded(double value) {
  const double whole = std::nearbyint(value);
  if (!(whole >= -2147483648.0 && whole <= 2147483647.0)) RaiseError(ErrorNumber::Overflow);
  return static_cast<std::int32_t>(whole);
}

/// The signed 16-bit code that the platform gives a character; "?" for one that the code page lacks.
std::int16_t AnsiCode(char16_t c, const CodePage& page) {
  const auto bytes = page.Encoded(std::u16string_view(&c, 1));
  if (!bytes || bytes->empty() || bytes->size() > 2) return u'?';
  unsigned code = 0;
  for (const char byte : *bytes) code = code << 8 | static_cast<unsigned char>(byte);
  return static_cast<std::int16_t>(code);
}

}  // namespace

void Utilities::ShowWindowAsync(WindowHandle hwnd, std::int32_t nCmdShow) const {
  Native().ShowWindowAsync(hwnd, nCmdShow);
}

void Utilities::SetZOrder(WindowHandle hwnd, WindowHandle hWndInsertAfter) const {
  Native().SetWindowPos(hwnd, hWndInsertAfter, 0, 0, 0, 0, kNoSize | kNoMove | kNoActivation);
}

void Utilities::SetWindowVisible(WindowHandle hwnd, std::int32_t bVisible) const {
  Native().ShowWindow(hwnd, bVisible != 0 ? kShowNoActivate : kHideWindow);
}

WindowHandle Utilities::GetTopWindow(WindowHandle hwnd) const {
  return Native().GetTopWindow(hwnd);
}

WindowHandle Utilities::FindWindow(std::u16string_view className, std::u16string_view windowName) const {
  return Native().FindWindow(className, windowName);
}

WindowHandle Utilities::FindWindowEx(WindowHandle parent, std::u16string_view className,
                                     std::u16string_view windowName) const {
  return Native().FindWindowEx(parent, className, windowName);
}

WindowHandle Utilities::GetParent(WindowHandle hwnd) const {
  return Native().GetParent(hwnd);
}

WindowHandle Utilities::GetForegroundWindow() const {
  return Native().GetForegroundWindow();
}

std::u16string Utilities::GetWindowText(WindowHandle hwnd) const {
  const CodePage& page = ThePlatform().AnsiCodePage();
  const std::u16string title = Native().GetWindowText(hwnd);
  std::u16string text;
  std::size_t bytesUsed = 0;
  for (std::size_t i = 0; i < title.size();) {
    const bool pair = IsHighSurrogate(title[i]) && i + 1 < title.size() && IsLowSurrogate(title[i + 1]);
    const std::u16string_view c = std::u16string_view(title).substr(i, pair ? 2 : 1);
    const auto bytes = page.Encoded(c);
    bytesUsed += bytes ? bytes->size() : 1;
    if (bytesUsed > kTitleBytes) break;
    text += bytes ? c : std::u16string_view(u"?");
    i += c.size();
  }
  while (!text.empty() && text.back() == u'\0') text.pop_back();
  return text;
}

std::int32_t Utilities::MouseX() const {
  return Native().GetCursorPos().X;
}

std::int32_t Utilities::MouseY() const {
  return Native().GetCursorPos().Y;
}

bool Utilities::IsPointInWindow(WindowHandle hwnd, std::int32_t x, std::int32_t y) const {
  const auto rect = Native().GetWindowRect(hwnd);
  return rect && rect->Left < x && x < rect->Right && rect->Top < y && y < rect->Bottom;
}

std::u16string Utilities::GetStrAsc(std::u16string_view s) const {
  const CodePage& page = ThePlatform().AnsiCodePage();
  std::u16string out;
  for (std::size_t i = 0; i < s.size(); ++i) {
    out += u"[" + ToText(static_cast<std::int64_t>(i) + 1) + u"," + ToText(AnsiCode(s[i], page)) + u"] ";
  }
  return out;
}

bool Utilities::IsParentWindow(WindowHandle hParentToTest, WindowHandle hChild) const {
  WindowHandle window = hChild;
  while (window != 0 && window != hParentToTest) window = Native().GetParent(window);
  return window != 0;
}

void Utilities::SetParent(WindowHandle hWndChild, WindowHandle hWndNewParent) const {
  Native().SetParent(hWndChild, hWndNewParent);
}

std::int32_t Utilities::GetListIndex(WindowHandle hwnd, double x, double y) const {
  const std::int32_t point = Checked32(std::int64_t{Rounded(y)} * 65536 + Rounded(x));
  return Native().SendMessage(hwnd, kItemFromPoint, 0, point);
}

WindowHandle Utilities::VBHandle(vbide::VBE& vbInstance) const {
  try {
    return FindWindow(u"wndclass_desked_gsk", Deref(vbInstance.MainWindow()).Caption());
  } catch (const Error&) {
    return 0;
  }
}

bool Utilities::IsNormalComp(const vbide::VBComponent& comp) const {
  const vbide::ComponentType type = comp.Type();
  if (type == vbide::ComponentType::ResFile || type == vbide::ComponentType::RelatedDocument) return false;
  const auto code = comp.CodeModule();
  return code && code->CountOfLines() != 0;
}

std::int16_t Utilities::GetModuleCount(const vbide::VBProject& project) const {
  std::int16_t count = 0;
  for (const auto& comp : Deref(project.VBComponents()).Items()) {
    if (IsNormalComp(*comp)) count = Checked16(count + 1);
  }
  return count;
}

std::int16_t Utilities::GetOptionIndex(const forms::OptionGroup& ctrl) const {
  for (const auto& [index, value] : ctrl.Buttons()) {
    if (value) return index;
  }
  return 0;
}

namespace {

/// Calls `plain(text)` for what stands for itself or for an escape that is known, and `vanishing(escape)` for others.
template <class Plain, class Vanishing>
void ReadEscapes(std::u16string_view src, const Plain& plain, const Vanishing& vanishing) {
  constexpr std::u16string_view names = u"trn\\";
  constexpr std::u16string_view meanings = u"\t\r\n\\";
  for (std::size_t i = 0; i < src.size(); ++i) {
    if (src[i] != u'\\') {
      plain(src.substr(i, 1));
      continue;
    }
    const std::size_t known = i + 1 < src.size() ? names.find(src[i + 1]) : names.npos;
    if (known != names.npos) {
      plain(meanings.substr(known, 1));
    } else {
      vanishing(src.substr(i, 2));
    }
    ++i;
  }
}

}  // namespace

std::u16string Utilities::ReplaceSpecialChar(std::u16string_view src) const {
  std::u16string out;
  ReadEscapes(
      src, [&out](std::u16string_view text) { out += text; }, [](std::u16string_view) {});
  return out;
}

std::vector<std::u16string> Utilities::VanishingEscapes(std::u16string_view src) const {
  std::vector<std::u16string> escapes;
  ReadEscapes(
      src, [](std::u16string_view) {}, [&escapes](std::u16string_view escape) { escapes.emplace_back(escape); });
  return escapes;
}

void Utilities::ActivateCodeWindow(const vbide::Window& w) const {
  Native().SendMessage(GetCodeWindowHandle(w), kActivateCodeView, 0, 0);
}

WindowHandle Utilities::GetCodeWindowHandle(const vbide::Window& w) const {
  return FindWindowEx(GetMDIClientWindowHandle(), u"VbaWindow", w.Caption());
}

WindowHandle Utilities::GetMDIClientWindowHandle() const {
  return FindWindowEx(VBHandle(Deref(Globals::gobjVBE)), u"MDIClient", u"");
}

}  // namespace quorvane

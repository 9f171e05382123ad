#include "host/Utilities.h"

#include "base/Checked.h"
#include "base/Text.h"
#include "host/Globals.h"
#include "host/VBIDE.h"
#include "platform/CodePage.h"
#include "platform/Platform.h"
#include "platform/forms/OptionGroup.h"
#include "services/ObjStat.h"

namespace quorvane {

namespace {

constexpr std::uint32_t kActivateCodeView = 0x1043;  // private message of the host's code windows

/// The signed 16-bit code that the platform gives a character; "?" for one that the code page lacks.
std::int16_t AnsiCode(char16_t c, const CodePage& page) {
  std::string bytes;
  std::size_t failedAt = 0;
  if (!page.Encode(std::u16string_view(&c, 1), bytes, failedAt) || bytes.empty() || bytes.size() > 2) return u'?';
  unsigned code = 0;
  for (const char byte : bytes) code = code << 8 | static_cast<unsigned char>(byte);
  return static_cast<std::int16_t>(code);
}

}  // namespace

Utilities::Utilities() {
  ObjStat::AddObject(this);
}
Utilities::~Utilities() {
  ObjStat::RemoveObject(this);
}

WindowHandle Utilities::FindWindow(std::u16string_view className, std::u16string_view windowName) const {
  return ThePlatform().Windows().FindWindow(className, windowName);
}

WindowHandle Utilities::FindWindowEx(WindowHandle parent, std::u16string_view className,
                                     std::u16string_view windowName) const {
  return ThePlatform().Windows().FindWindowEx(parent, className, windowName);
}

std::u16string Utilities::GetStrAsc(std::u16string_view s) const {
  const CodePage& page = ThePlatform().AnsiCodePage();
  std::u16string out;
  for (std::size_t i = 0; i < s.size(); ++i) {
    out += u"[" + ToText(static_cast<std::int64_t>(i) + 1) + u"," + ToText(AnsiCode(s[i], page)) + u"] ";
  }
  return out;
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

std::int16_t Utilities::GetOptionIndex(const OptionGroup& ctrl) const {
  for (const auto& [index, value] : ctrl.Buttons()) {
    if (value) return index;
  }
  return 0;
}

std::u16string Utilities::ReplaceSpecialChar(std::u16string_view src) const {
  std::u16string out;
  out.reserve(src.size());
  bool pending = false;
  for (const char16_t c : src) {
    if (pending) {
      if (c == u't') out += u'\t';
      if (c == u'r') out += u'\r';
      if (c == u'n') out += u'\n';
      if (c == u'\\') out += u'\\';
      pending = false;
    } else if (c == u'\\') {
      pending = true;
    } else {
      out += c;
    }
  }
  return out;
}

void Utilities::ActivateCodeWindow(const vbide::Window& w) const {
  ThePlatform().Windows().SendMessage(GetCodeWindowHandle(w), kActivateCodeView, 0, 0);
}

WindowHandle Utilities::GetCodeWindowHandle(const vbide::Window& w) const {
  return FindWindowEx(GetMDIClientWindowHandle(), u"VbaWindow", w.Caption());
}

WindowHandle Utilities::GetMDIClientWindowHandle() const {
  return FindWindowEx(VBHandle(Deref(Globals::gobjVBE)), u"MDIClient", u"");
}

}  // namespace quorvane

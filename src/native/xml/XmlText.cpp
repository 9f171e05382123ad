#include "native/xml/XmlText.h"

#include "base/Text.h"
#include "native/codepages/AsciiRun.h"

namespace quorvane::native {

void ToXmlText(std::u16string_view text, std::string& out) {
  out.clear();
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t run = AsciiRun(text, i);
    const std::size_t begin = out.size();
    out.resize(begin + run);
    NarrowAscii(text.data() + i, run, out.data() + begin);
    i += run;
    const std::size_t first = i;
    while (i < text.size() && text[i] >= 0x80) ++i;
    AppendUtf8(text.substr(first, i - first), out);
  }
  constexpr std::string_view replacement = "\xEF\xBF\xBD";
  for (std::size_t nul = out.find('\0'); nul != out.npos; nul = out.find('\0', nul)) out.replace(nul, 1, replacement);
}

void AppendEscapedText(std::string_view text, std::string& out) {
  std::size_t begin = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (c != '<' && c != '>' && c != '&' && c != '\r') continue;
    out.append(text.substr(begin, at - begin));
    out.append(c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '&' ? "&amp;" : "&#13;");
    begin = at + 1;
  }
  out.append(text.substr(begin));
}

void AppendXmlText(std::string_view utf8, std::u16string& out) {
  for (std::size_t i = 0; i < utf8.size();) {
    const std::size_t run = AsciiRun(utf8, i);
    const std::size_t begin = out.size();
    out.resize(begin + run);
    WidenAscii(utf8.data() + i, run, out.data() + begin);
    i += run;
    const std::size_t first = i;
    while (i < utf8.size() && static_cast<unsigned char>(utf8[i]) >= 0x80) ++i;
    if (i > first) out += FromUtf8(utf8.substr(first, i - first));
  }
}

}  // namespace quorvane::native

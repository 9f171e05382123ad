#include "workbench/project/KeyLines.h"

#include <algorithm>

#include "base/Text.h"
#include "platform/CodePage.h"

namespace quorvane::workbench {

std::u16string_view TrimSpace(std::u16string_view text) {
  const std::size_t begin = text.find_first_not_of(u" \t");
  if (begin == std::u16string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(u" \t") - begin + 1);
}

std::u16string_view Unquoted(std::u16string_view value) {
  value = TrimSpace(value);
  if (value.starts_with(u'"')) value.remove_prefix(1);
  if (value.ends_with(u'"')) value.remove_suffix(1);
  return TrimSpace(value);
}

std::vector<KeyLine> ReadKeyLines(std::string_view bytes, const CodePage& page) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  std::u16string text;
  if (bytes.starts_with(kByteOrderMark)) {
    text = FromUtf8(bytes.substr(kByteOrderMark.size()));
  } else {
    page.Decode(bytes, text);
  }
  std::vector<KeyLine> lines;
  std::u16string_view rest = text;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find_first_of(u"\r\n"), rest.size());
    const std::u16string_view line = TrimSpace(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.starts_with(u'[')) break;
    const std::size_t equals = line.find(u'=');
    if (equals == std::u16string_view::npos) continue;
    lines.push_back(
        {std::u16string(TrimSpace(line.substr(0, equals))), std::u16string(TrimSpace(line.substr(equals + 1)))});
  }
  return lines;
}

}  // namespace quorvane::workbench

#include "base/Text.h"

#include <algorithm>

namespace quorvane {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendCodePoint(char32_t c, std::string& out) {
  const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6));
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | (c >> 12));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | (c >> 18));
    put(0x80 | ((c >> 12) & 0x3F));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

/// Decodes one character at `i`; moves `i` after it. A malformed sequence consumes one byte.
char32_t DecodeUtf8(std::string_view s, std::size_t& i) {
  const auto byte = [&s](std::size_t k) { return static_cast<unsigned char>(s[k]); };
  const unsigned char lead = byte(i);
  const int length = lead < 0x80                   ? 1
                     : lead >= 0xC2 && lead < 0xE0 ? 2
                     : (lead & 0xF0) == 0xE0       ? 3
                     : lead >= 0xF0 && lead < 0xF5 ? 4
                                                   : 0;
  if (length == 1) return s[i++] & 0x7F;
  if (length == 0 || i + static_cast<std::size_t>(length) > s.size()) {
    ++i;
    return kReplacement;
  }
  char32_t c = lead & (0xFF >> (length + 1));
  for (int k = 1; k < length; ++k) {
    const unsigned char next = byte(i + static_cast<std::size_t>(k));
    if ((next & 0xC0) != 0x80) {
      ++i;
      return kReplacement;
    }
    c = (c << 6) | (next & 0x3F);
  }
  constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
  if (c < least[length] || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) {
    ++i;
    return kReplacement;
  }
  i += static_cast<std::size_t>(length);
  return c;
}

}  // namespace

void AppendUtf8(std::u16string_view text, std::string& out) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (c < 0x80) {
      out.push_back(static_cast<char>(c));
    } else if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      AppendCodePoint(0x10000 + ((static_cast<char32_t>(c & 0x3FF) << 10) | (text[i + 1] & 0x3FF)), out);
      ++i;
    } else {
      AppendCodePoint(IsHighSurrogate(c) || IsLowSurrogate(c) ? kReplacement : c, out);
    }
  }
}

std::string ToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  AppendUtf8(text, out);
  return out;
}

std::u16string FromUtf8(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const char32_t c = DecodeUtf8(utf8, i);
    if (c < 0x10000) {
      out.push_back(static_cast<char16_t>(c));
    } else {
      out.push_back(static_cast<char16_t>(0xD7C0 + (c >> 10)));
      out.push_back(static_cast<char16_t>(0xDC00 | (c & 0x3FF)));
    }
  }
  return out;
}

std::u16string ToText(std::int64_t number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

bool EqualsNoCaseAscii(std::u16string_view a, std::u16string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char16_t x, char16_t y) { return ToLowerAscii(x) == ToLowerAscii(y); });
}

std::u16string ReplaceAll(std::u16string_view text, std::u16string_view from, std::u16string_view to) {
  std::u16string out;
  std::size_t begin = 0;
  for (std::size_t at = text.find(from); at != text.npos; at = text.find(from, begin)) {
    out.append(text.substr(begin, at - begin)).append(to);
    begin = at + from.size();
  }
  return out.append(text.substr(begin));
}

std::vector<std::u16string_view> Split(std::u16string_view text, std::u16string_view separator) {
  std::vector<std::u16string_view> pieces;
  std::size_t begin = 0;
  for (std::size_t at = text.find(separator); at != text.npos; at = text.find(separator, begin)) {
    pieces.push_back(text.substr(begin, at - begin));
    begin = at + separator.size();
  }
  pieces.push_back(text.substr(begin));
  return pieces;
}

std::u16string_view TrimBlanks(std::u16string_view text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

}  // namespace quorvane

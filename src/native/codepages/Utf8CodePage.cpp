#include "native/codepages/Utf8CodePage.h"

#include <algorithm>
#include <cstdint>

#include "base/Text.h"
#include "native/codepages/AsciiRun.h"
#include "native/codepages/ByteEscape.h"
#include "native/codepages/EncodeLoop.h"

namespace quorvane::native {

namespace {

struct Range {
  char16_t First;
  char16_t Last;
};

/// Characters of the basic plane whose East Asian width is wide or full, ascending; gaps of
/// unassigned characters between them are bridged.
constexpr Range kWide[] = {
    {0x1100, 0x115F}, {0x231A, 0x231B}, {0x2329, 0x232A}, {0x23E9, 0x23EC}, {0x23F0, 0x23F0}, {0x23F3, 0x23F3},
    {0x25FD, 0x25FE}, {0x2614, 0x2615}, {0x2648, 0x2653}, {0x267F, 0x267F}, {0x2693, 0x2693}, {0x26A1, 0x26A1},
    {0x26AA, 0x26AB}, {0x26BD, 0x26BE}, {0x26C4, 0x26C5}, {0x26CE, 0x26CE}, {0x26D4, 0x26D4}, {0x26EA, 0x26EA},
    {0x26F2, 0x26F3}, {0x26F5, 0x26F5}, {0x26FA, 0x26FA}, {0x26FD, 0x26FD}, {0x2705, 0x2705}, {0x270A, 0x270B},
    {0x2728, 0x2728}, {0x274C, 0x274C}, {0x274E, 0x274E}, {0x2753, 0x2755}, {0x2757, 0x2757}, {0x2795, 0x2797},
    {0x27B0, 0x27B0}, {0x27BF, 0x27BF}, {0x2B1B, 0x2B1C}, {0x2B50, 0x2B50}, {0x2B55, 0x2B55}, {0x2E80, 0x303E},
    {0x3041, 0x3247}, {0x3250, 0x4DBF}, {0x4E00, 0xA4C6}, {0xA960, 0xA97C}, {0xAC00, 0xD7A3}, {0xF900, 0xFAD9},
    {0xFE10, 0xFE19}, {0xFE30, 0xFE6B}, {0xFF01, 0xFF60}, {0xFFE0, 0xFFE6},
};

unsigned ByteAt(std::string_view bytes, std::size_t i) {
  return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U;
}

/// The length of the well-formed sequence at `i`, 0 when there is none. The second byte alone tells overlong forms,
/// surrogates and values beyond U+10FFFF.
std::size_t SequenceLength(std::string_view bytes, std::size_t i) {
  const unsigned lead = ByteAt(bytes, i);
  const unsigned second = ByteAt(bytes, i + 1);
  const auto isTail = [&](std::size_t k) { return (ByteAt(bytes, i + k) & 0xC0) == 0x80; };
  if (lead < 0xC2 || lead > 0xF4 || !isTail(1)) return 0;
  if (lead < 0xE0) return 2;
  if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) || !isTail(2)) return 0;
  if (lead < 0xF0) return 3;
  if ((lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F) || !isTail(3)) return 0;
  return 4;
}

char16_t* DecodeSequence(std::string_view bytes, std::size_t i, std::size_t length, char16_t* to) {
  std::uint32_t c = ByteAt(bytes, i) & (0x7FU >> length);
  for (std::size_t k = 1; k < length; ++k) c = (c << 6) | (ByteAt(bytes, i + k) & 0x3F);
  if (c >= 0x10000) {
    *to++ = static_cast<char16_t>(0xD7C0 + (c >> 10));
    c = 0xDC00 | (c & 0x3FF);
  }
  *to++ = static_cast<char16_t>(c);
  return to;
}

char* EncodeUnit(std::uint32_t c, char* to) {
  const auto put = [&to](std::uint32_t byte) { *to++ = static_cast<char>(static_cast<unsigned char>(byte)); };
  if (c < 0x800) {
    put(0xC0 | (c >> 6));
  } else {
    if (c < 0x10000) {
      put(0xE0 | (c >> 12));
    } else {
      put(0xF0 | (c >> 18));
      put(0x80 | ((c >> 12) & 0x3F));
    }
    put(0x80 | ((c >> 6) & 0x3F));
  }
  put(0x80 | (c & 0x3F));
  return to;
}

}  // namespace

void Utf8CodePage::Decode(std::string_view bytes, std::u16string& out) const {
  const std::size_t begin = out.size();
  out.resize(begin + bytes.size());
  char16_t* to = out.data() + begin;
  for (std::size_t i = 0; i < bytes.size();) {
    const std::size_t run = AsciiRun(bytes, i);
    WidenAscii(bytes.data() + i, run, to);
    to += run;
    i += run;
    while (i < bytes.size() && ByteAt(bytes, i) >= 0x80) {
      const std::size_t length = SequenceLength(bytes, i);
      if (length == 0) {
        *to++ = EscapedByte(static_cast<unsigned char>(bytes[i++]));
      } else {
        to = DecodeSequence(bytes, i, length, to);
        i += length;
      }
    }
  }
  out.resize(static_cast<std::size_t>(to - out.data()));
}

bool Utf8CodePage::Encode(std::u16string_view text, std::string& out, std::size_t& failedAt) const {
  return EncodeText(text, 3, out, failedAt, [](std::u16string_view from, std::size_t& i, char*& to) {
    const char16_t c = from[i];
    if (IsHighSurrogate(c) && i + 1 < from.size() && IsLowSurrogate(from[i + 1])) {
      to = EncodeUnit(0x10000U + ((c & 0x3FFU) << 10) + (from[++i] & 0x3FFU), to);
    } else if (IsEscapedByte(c)) {
      *to++ = static_cast<char>(UnescapedByte(c));
    } else if (IsHighSurrogate(c) || IsLowSurrogate(c)) {
      return false;
    } else {
      to = EncodeUnit(c, to);
    }
    ++i;
    return true;
  });
}

bool Utf8CodePage::IsWideBeyondAscii(char16_t c) const {
  const auto* range = std::lower_bound(std::begin(kWide), std::end(kWide), c,
                                       [](const Range& r, char16_t unit) { return r.Last < unit; });
  return range != std::end(kWide) && range->First <= c;
}

}  // namespace quorvane::native

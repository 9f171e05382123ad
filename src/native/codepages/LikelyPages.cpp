// Nearly every page decodes nearly every byte, so that what it cannot decode tells little. What tells much is how
// common the characters would be: text in Chinese, Japanese or Korean keeps to the first level of its page; Cyrillic
// and Greek come in whole words; in a Western language single letters beyond ASCII stand among ASCII ones.

#include "native/codepages/LikelyPages.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <utility>

#include "native/codepages/ByteEscape.h"
#include "native/codepages/CodePages.h"

namespace quorvane::native {

namespace {

using Byte = unsigned char;

constexpr std::size_t kFewest = 12;     // characters beyond ASCII that tell something
constexpr double kLikely = 0.9;         // of all of them
constexpr double kAlike = 0.03;         // two pages are told apart by more than that
constexpr std::size_t kWesternRun = 2;  // letters beyond ASCII side by side in one word
constexpr std::size_t kMost = 2;

struct Counts {
  std::size_t good = 0;
  std::size_t all = 0;

  void Add(bool isGood) {
    good += isGood ? 1 : 0;
    ++all;
  }
};

bool IsIn(Byte byte, Byte first, Byte last) {
  return byte >= first && byte <= last;
}

/// Which pairs of bytes a page of two bytes has, and which of them are common.
struct DoubleByteRule {
  std::string_view page;
  bool (*isLead)(Byte);
  bool (*isTrail)(Byte);
  bool (*isCommon)(Byte lead, Byte trail);
};

// The page with fewer common characters first: what fits both is more likely to be that.
constexpr DoubleByteRule kDoubleByte[] = {
    {"949", [](Byte b) { return IsIn(b, 0x81, 0xFE); }, [](Byte b) { return b >= 0x41 && b != 0x7F && b != 0xFF; },
     [](Byte lead, Byte trail) { return trail >= 0xA1 && (IsIn(lead, 0xA1, 0xA3) || IsIn(lead, 0xB0, 0xC8)); }},
    {"950", [](Byte b) { return IsIn(b, 0x81, 0xFE); },
     [](Byte b) { return IsIn(b, 0x40, 0x7E) || IsIn(b, 0xA1, 0xFE); },
     [](Byte lead, Byte) { return IsIn(lead, 0xA1, 0xC6); }},
    {"936", [](Byte b) { return IsIn(b, 0x81, 0xFE); }, [](Byte b) { return b >= 0x40 && b != 0x7F && b != 0xFF; },
     [](Byte lead, Byte trail) { return trail >= 0xA1 && (IsIn(lead, 0xA1, 0xA3) || IsIn(lead, 0xB0, 0xD7)); }},
    {"932", [](Byte b) { return IsIn(b, 0x81, 0x9F) || IsIn(b, 0xE0, 0xFC); },
     [](Byte b) { return IsIn(b, 0x40, 0xFC) && b != 0x7F; },
     [](Byte lead, Byte) { return IsIn(lead, 0x81, 0x83) || IsIn(lead, 0x88, 0x97); }},
};

Counts CountDouble(const DoubleByteRule& rule, std::string_view bytes) {
  Counts counts;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto lead = static_cast<Byte>(bytes[i]);
    if (lead < 0x80) continue;
    const Byte trail = i + 1 < bytes.size() ? static_cast<Byte>(bytes[i + 1]) : Byte{0};
    const bool pair = rule.isLead(lead) && rule.isTrail(trail);
    counts.Add(pair && rule.isCommon(lead, trail));
    if (pair) ++i;
  }
  return counts;
}

/// Whole characters; a byte of none counts like one.
Counts CountUtf8(std::string_view bytes) {
  std::u16string text;
  SharedCodePage("UTF-8").Decode(bytes, text);
  Counts counts;
  for (const char16_t c : text) {
    if (c >= 0x80) counts.Add(!IsEscapedByte(c));
  }
  return counts;
}

bool IsAsciiLetter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool IsScript(std::string_view page) {
  return page == "1251" || page == "1253" || page == "1255" || page == "1256" || page == "874";
}

/// A page of one byte: letters of another script, or those of Western words.
Counts CountSingle(std::string_view page, std::string_view bytes) {
  std::u16string text;
  SharedCodePage(page).Decode(bytes, text);
  constexpr char16_t kFirstOfOtherScripts = 0x370;
  const auto isControl = [](char16_t c) { return c < 0xA0 || IsEscapedByte(c); };
  Counts counts;
  for (std::size_t i = 0; i < text.size();) {
    if (text[i] < 0x80) {
      ++i;
      continue;
    }
    const std::size_t begin = i;
    while (i < text.size() && text[i] >= 0x80) ++i;
    const bool amongAscii =
        (begin > 0 && IsAsciiLetter(text[begin - 1])) || (i < text.size() && IsAsciiLetter(text[i]));
    const bool western = i - begin <= kWesternRun;
    for (std::size_t k = begin; k < i; ++k) {
      // What Greek has none of: the places where Cyrillic has its most common letters.
      const bool rare = page == "1253" && (text[k] == 0x3B0 || text[k] == 0x390);
      const bool script = text[k] >= kFirstOfOtherScripts && !rare && !amongAscii;
      counts.Add(!isControl(text[k]) && (IsScript(page) ? script : western));
    }
  }
  return counts;
}

Counts CountIn(std::string_view page, std::string_view bytes) {
  for (const DoubleByteRule& rule : kDoubleByte) {
    if (rule.page == page) return CountDouble(rule, bytes);
  }
  return page == "UTF-8" ? CountUtf8(bytes) : CountSingle(page, bytes);
}

double Share(const Counts& counts) {
  return counts.all == 0 ? 1 : static_cast<double>(counts.good) / static_cast<double>(counts.all);
}

}  // namespace

double Readable(std::string_view page, std::string_view bytes) {
  return Share(CountIn(page, bytes));
}

std::vector<std::string> LikelyPages(std::string_view bytes) {
  constexpr std::string_view kCandidates[] = {"UTF-8", "949", "950", "936", "932", "1253", "1251", "1252"};
  std::vector<std::pair<double, std::string_view>> found;
  for (const std::string_view page : kCandidates) {
    const Counts counts = CountIn(page, bytes);
    if (counts.all >= kFewest && Share(counts) >= kLikely) found.emplace_back(Share(counts), page);
  }
  // Steps of what tells pages apart; within one the order above stays.
  std::ranges::stable_sort(found, std::greater(), [](const auto& one) { return static_cast<int>(one.first / kAlike); });
  std::vector<std::string> names;
  for (const auto& [share, page] : found) {
    if (names.size() < kMost) names.emplace_back(page);
  }
  return names;
}

}  // namespace quorvane::native

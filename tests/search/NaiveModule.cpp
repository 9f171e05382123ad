#include "search/NaiveModule.h"

#include <algorithm>

namespace quorvane::test {

namespace {

/// Two columns: the letters of these tests from beyond Latin, but for the narrow kana.
std::int32_t Width(char16_t c) {
  return c >= 0x80 && !(c >= 0xFF61 && c <= 0xFF9F) ? 2 : 1;
}

bool InString(const std::u16string& s, std::size_t place) {
  bool inside = false;
  for (std::size_t i = 1; i <= place && i <= s.size(); ++i) {
    if (s[i - 1] == u'"') inside = !inside;
  }
  return inside;
}

bool MarksComment(const std::u16string& s) {
  std::u16string head = s.substr(0, 4);
  for (char16_t& c : head) {
    if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c - u'A' + u'a');
  }
  if (head == u"rem ") return true;
  for (std::size_t place = s.size(); place > 0; --place) {
    if (s[place - 1] == u'\'' && !InString(s, place)) return true;
  }
  return false;
}

}  // namespace

std::u16string NaiveModule::Lines(std::int32_t start, std::int32_t count) const {
  std::u16string text;
  for (std::int32_t y = std::max(start, 1); y < start + count && y <= Count(); ++y) {
    if (y > std::max(start, 1)) text += u"\r\n";
    text += Line(y);
  }
  return text;
}

std::int32_t NaiveModule::XToScreenX(std::int32_t x, std::u16string_view s) {
  std::int32_t column = 1;
  for (std::int32_t i = 1; i <= static_cast<std::int32_t>(s.size()) && i < x; ++i) {
    column += Width(s[static_cast<std::size_t>(i) - 1]);
  }
  return column;
}

std::int32_t NaiveModule::ScreenXToX(std::int32_t wanted, std::u16string_view s) {
  std::int32_t column = 1;
  std::int32_t i = 1;
  while (i <= static_cast<std::int32_t>(s.size()) && column < wanted) {
    column += Width(s[static_cast<std::size_t>(i) - 1]);
    ++i;
  }
  return i;
}

std::int32_t NaiveModule::Offset(std::int32_t base, std::int32_t y, std::int32_t x) const {
  if (y - base < 1) return x;
  return static_cast<std::int32_t>(Lines(base, y - base).size()) + x + 2;
}

std::pair<std::int32_t, std::int32_t> NaiveModule::Place(std::int32_t base, std::int32_t pos) const {
  const std::u16string text = Lines(base, Count() - base + 1);
  const std::u16string head = text.substr(0, static_cast<std::size_t>(pos));
  auto y = base + static_cast<std::int32_t>(std::count(head.begin(), head.end(), u'\n'));
  const auto lastFeedUpTo = [&](std::int32_t place) {
    for (std::int32_t p = std::min(place, static_cast<std::int32_t>(head.size())); p > 0; --p) {
      if (head[static_cast<std::size_t>(p) - 1] == u'\n') return p;
    }
    return 0;
  };
  std::int32_t p = lastFeedUpTo(pos);
  if (p == pos) {
    p = lastFeedUpTo(pos - 1);
    --y;
  }
  return {y, p >= 1 ? pos - p : pos};
}

std::u16string NaiveModule::Match(std::int32_t y1, std::int32_t x1, std::int32_t y2, std::int32_t x2) const {
  const std::u16string text = Lines(y1, y2 - y1 + 1);
  std::u16string match;
  for (std::int32_t place = x1; place < Offset(y1, y2, x2) && place <= static_cast<std::int32_t>(text.size());
       ++place) {
    match += text[static_cast<std::size_t>(place) - 1];
  }
  return match;
}

bool NaiveModule::HasComment(std::int32_t y1, std::int32_t y2, std::int32_t x2) const {
  std::int32_t y = y2;
  std::u16string s = Line(y).substr(0, static_cast<std::size_t>(x2) - 1);
  while (!MarksComment(s)) {
    --y;
    if (y < 1) return false;
    s = Line(y);
    if (s.empty()) return false;
    if (y < y1 && s.back() != u'_') return false;
  }
  return true;
}

std::vector<std::u16string> RandomLines(Dice& dice, std::int32_t most, const std::vector<std::u16string>& pieces) {
  std::vector<std::u16string> lines(static_cast<std::size_t>(dice.Roll(most)));
  for (std::u16string& line : lines) {
    for (std::int32_t i = dice.Roll(13); i > 1; --i) line += dice.Pick(pieces);
  }
  return lines;
}

std::u16string JoinLines(const std::vector<std::u16string>& lines) {
  std::u16string text;
  for (std::size_t i = 0; i < lines.size(); ++i) text += (i > 0 ? u"\r\n" : u"") + lines[i];
  return text;
}

}  // namespace quorvane::test

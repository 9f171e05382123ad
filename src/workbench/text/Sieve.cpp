// A text that every match holds is looked for in the bytes of the file. That is sound because of what every code page
// here keeps to: an ASCII character is its own byte, so that a text of ASCII characters cannot stand in the file in any
// other bytes. A byte of a longer character may look like ASCII; that lets a file through for nothing and costs time
// alone. Letters are compared in both cases, ASCII ones with ASCII ones, as the matchers do.

#include "workbench/text/Sieve.h"

#include <algorithm>
#include <utility>

namespace quorvane::workbench {

namespace {

char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// A region's end is turned into a screen column, which fails for a longer line: that must be told, match or not.
constexpr std::size_t kLongestLastLine = 16000;

bool EndsInShortLine(std::string_view bytes) {
  if (bytes.size() <= kLongestLastLine) return true;
  std::size_t last = bytes.size();
  while (last > 0 && (bytes[last - 1] == '\n' || bytes[last - 1] == '\r' || bytes[last - 1] == '\0')) --last;
  const std::size_t begin = bytes.substr(0, last).find_last_of("\r\n");
  return last - (begin == bytes.npos ? 0 : begin) <= kLongestLastLine;
}

}  // namespace

Sieve::Sieve(std::vector<std::string> texts, bool matchCase) : texts_(std::move(texts)), matchCase_(matchCase) {
  if (!matchCase_) {
    for (std::string& text : texts_) std::ranges::transform(text, text.begin(), LowerAscii);
  }
  for (const std::string& text : texts_) scanners_.emplace_back(text, matchCase_);
}

Sieve Sieve::BeyondAscii() {
  Sieve sieve;
  sieve.beyondAscii_ = true;
  sieve.scanners_.push_back(ByteScanner::BeyondAscii());
  return sieve;
}

bool Sieve::LetsThrough(std::string_view bytes) const {
  if (!Usable() || !EndsInShortLine(bytes)) return true;
  return std::ranges::any_of(
      scanners_, [bytes](const ByteScanner& scanner) { return scanner.Find(bytes, 0) != std::string_view::npos; });
}

}  // namespace quorvane::workbench

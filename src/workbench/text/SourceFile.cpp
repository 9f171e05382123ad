#include "workbench/text/SourceFile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <ranges>
#include <utility>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "base/Error.h"
#include "workbench/text/ByteScanner.h"
#include "workbench/text/Sieve.h"
#include "workbench/text/SourceHeader.h"
#include "workbench/text/WideVectors.h"

namespace quorvane::workbench {

// Loading a file tells only what every search asks for: the header, the hidden lines and the count of lines. Attribute
// lines are so rare that the word is searched for over the whole code, and only a line that holds it is looked at; line
// ends are counted without noting where they are. The table of lines is cut at the first question that needs it, from
// line ends found 64 bytes at a time, as bits of a mask.

namespace {

constexpr std::size_t kBlock = 64;

/// Bit i tells whether byte i of the 64 is `wanted`.
std::uint64_t BytesThatAre(char wanted, const char* bytes) {
  std::uint64_t mask = 0;
#if defined(__SSE2__)
  const __m128i pattern = _mm_set1_epi8(wanted);
  for (int i = 3; i >= 0; --i) {
    const __m128i piece = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + 16 * i));
    mask = mask << 16 | static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(piece, pattern)));
  }
#else
  for (std::size_t i = 0; i < kBlock; ++i) mask |= std::uint64_t{bytes[i] == wanted ? 1U : 0U} << i;
#endif
  return mask;
}

/// Sums of up to 255 blocks of bytes fit one byte each, in loops that the compiler turns into vector instructions.
QUORVANE_WIDE_VECTORS
std::size_t CountLineEnds(std::string_view bytes) {
  constexpr std::size_t kLane = 64;
  std::size_t count = 0;
  std::size_t i = 0;
  while (i + kLane < bytes.size()) {  // one byte more is looked at
    std::array<unsigned char, kLane> sums{};
    const std::size_t end = i + kLane * std::min<std::size_t>((bytes.size() - 1 - i) / kLane, 255);
    for (; i < end; i += kLane) {
      const char* const at = bytes.data() + i;
      for (std::size_t k = 0; k < kLane; ++k) {
        const int ends =
            static_cast<int>(at[k] == '\n') | (static_cast<int>(at[k] == '\r') & ~static_cast<int>(at[k + 1] == '\n'));
        sums[k] = static_cast<unsigned char>(sums[k] + ends);
      }
    }
    for (const unsigned char sum : sums) count += sum;
  }
  for (; i < bytes.size(); ++i) {
    if (bytes[i] == '\n' || (bytes[i] == '\r' && !bytes.substr(i + 1).starts_with('\n'))) ++count;
  }
  return count;
}

/// Calls `take` for each line of `bytes` from `begin` on.
template <class Take>
void CutLines(std::string_view bytes, std::size_t begin, const Take& take) {
  for (std::size_t block = begin; block < bytes.size(); block += kBlock) {
    std::array<char, kBlock> tail{};
    const char* data = bytes.data() + block;
    if (bytes.size() - block < kBlock) {
      std::copy(data, bytes.data() + bytes.size(), tail.begin());
      data = tail.data();
    }
    const std::uint64_t lf = BytesThatAre('\n', data);
    const std::uint64_t cr = BytesThatAre('\r', data);
    const bool lfFollows = block + kBlock < bytes.size() && bytes[block + kBlock] == '\n';
    const std::uint64_t beforeLf = lf >> 1 | std::uint64_t{lfFollows ? 1U : 0U} << (kBlock - 1);
    for (std::uint64_t ends = lf | (cr & ~beforeLf); ends != 0; ends &= ends - 1) {
      const std::size_t at = block + static_cast<std::size_t>(std::countr_zero(ends));
      const bool crLf = bytes[at] == '\n' && at > begin && bytes[at - 1] == '\r';
      take(FileLineSpan{begin, at - (crLf ? 1 : 0), at + 1});
      begin = at + 1;
    }
  }
  if (begin < bytes.size()) take(FileLineSpan{begin, bytes.size(), bytes.size()});
}

/// Without the one line end at the end of `text`.
std::string_view WithoutLineEnd(std::string_view text) {
  if (text.ends_with('\n'))
    text.remove_suffix(text.ends_with("\r\n") ? 2 : 1);
  else if (text.ends_with('\r'))
    text.remove_suffix(1);
  return text;
}

/// Where the last line of `text` begins, which ends in no line end.
std::size_t LastLineBegin(std::string_view text) {
  std::size_t begin = text.size();
  while (begin > 0 && text[begin - 1] != '\n' && text[begin - 1] != '\r') --begin;
  return begin;
}

std::string_view FirstLineOf(std::string_view text) {
  return text.substr(0, text.find_first_of("\r\n"));
}

bool EndsContinued(std::string_view line) {
  return line.ends_with(" _") || line.ends_with("\t_");
}

SourceFile::Line ToLine(const FileLineSpan& span) {
  return {static_cast<std::uint32_t>(span.begin), static_cast<std::uint32_t>(span.end - span.begin)};
}

}  // namespace

SourceFile::SourceFile(std::string bytes) : bytes_(std::move(bytes)) {
  const std::string_view all = bytes_;
  const SourceHeader header = ReadSourceHeader(all);
  codeBegin_ = static_cast<std::uint32_t>(header.end);
  headerLines_ = header.lines;
  name_ = header.component;
  TakeCode();
}

SourceFile::SourceFile(std::string_view bytes, std::shared_ptr<const Sieve> sieve,
                       std::function<std::string()> readAgain)
    : sieve_(std::move(sieve)) {
  const SourceHeader header = ReadSourceHeader(bytes);
  codeBegin_ = static_cast<std::uint32_t>(header.end);
  headerLines_ = header.lines;
  name_ = header.component;
  // Without a name in the header one may stand further down, and what is all hidden has no lines.
  const std::string_view code = bytes.substr(codeBegin_);
  AttributeLine ignored;
  const bool hasLines = !code.empty() && !ReadAttributeLine(FirstLineOf(code), ignored);
  if (hasLines && !name_.empty() && !Deref(sieve_).LetsThrough(bytes)) {
    bytes_ = bytes.substr(0, codeBegin_);
    readAgain_ = std::move(readAgain);
  } else {
    bytes_ = bytes;
    TakeCode();
  }
}

const SourceFile& SourceFile::Whole() const {
  if (!whole_) whole_ = std::make_unique<const SourceFile>(readAgain_());
  return *whole_;
}

bool SourceFile::Lacks(const Sieve& sieve) const {
  if (sieve_ && *sieve_ == sieve) return readAgain_ != nullptr;
  return CountOfLines() > 0 && !sieve.LetsThrough(Bytes());
}

void SourceFile::TakeCode() {
  const std::string_view all = bytes_;
  static const ByteScanner attributeWord("attribute", false);
  std::size_t at = codeBegin_;  // of a line; those before it are counted
  std::size_t count = 0;
  for (std::size_t hit = attributeWord.Find(all, at); hit != all.npos; hit = attributeWord.Find(all, at)) {
    const std::size_t begin = at + LastLineBegin(all.substr(at, hit - at));
    const FileLineSpan span = FileLineAt(all, begin);
    count += CountLineEnds(all.substr(at, begin - at));
    if (!TakeHidden(span, count)) ++count;
    at = span.next;
  }
  const std::string_view rest = all.substr(at);
  count += CountLineEnds(rest) + (LastLineBegin(rest) < rest.size() ? 1 : 0);
  countOfLines_ = static_cast<std::int32_t>(count);
}

bool SourceFile::TakeHidden(const FileLineSpan& span, std::size_t linesAbove) {
  AttributeLine attribute;
  const std::string_view all = bytes_;
  if (!ReadAttributeLine(all.substr(span.begin, span.end - span.begin), attribute)) return false;
  // After another hidden line, the line of code above is not continued either.
  const std::size_t above = hidden_.empty() ? codeBegin_ : hidden_.back().end;
  if (EndsContinued(WithoutLineEnd(all.substr(above, span.begin - above)))) return false;
  hidden_.push_back({static_cast<std::int32_t>(linesAbove), static_cast<std::uint32_t>(span.begin),
                     static_cast<std::uint32_t>(span.next)});
  std::string_view name;
  if (name_.empty() && IsNameAttribute(attribute, name)) name_ = name;
  return true;
}

const std::vector<SourceFile::Line>& SourceFile::Lines() const {
  if (readAgain_) return Whole().Lines();
  if (!lines_.empty() || countOfLines_ == 0) return lines_;
  lines_.reserve(static_cast<std::size_t>(countOfLines_));
  auto hidden = hidden_.begin();
  CutLines(bytes_, codeBegin_, [&](const FileLineSpan& span) {
    if (hidden != hidden_.end() && hidden->begin == span.begin) {
      ++hidden;
    } else {
      lines_.push_back(ToLine(span));
    }
  });
  return lines_;
}

SourceFile::Line SourceFile::LineAt(std::size_t index) const {
  if (readAgain_) return Whole().LineAt(index);
  const auto line = static_cast<std::int32_t>(index);
  if (lines_.empty() && line == 0) return FirstLine();
  if (lines_.empty() && line + 1 == countOfLines_) return LastLine();
  return Lines()[index];
}

SourceFile::Line SourceFile::FirstLine() const {
  std::size_t begin = codeBegin_;
  for (const HiddenLine& hidden : hidden_) {
    if (hidden.after > 0) break;
    begin = hidden.end;
  }
  return ToLine(FileLineAt(bytes_, begin));
}

SourceFile::Line SourceFile::LastLine() const {
  std::size_t next = bytes_.size();
  for (auto hidden = hidden_.rbegin(); hidden != hidden_.rend() && hidden->after == countOfLines_; ++hidden)
    next = hidden->begin;
  const std::string_view code = WithoutLineEnd(std::string_view(bytes_).substr(codeBegin_, next - codeBegin_));
  const std::size_t begin = LastLineBegin(code);
  return ToLine({codeBegin_ + begin, codeBegin_ + code.size(), next});
}

std::string_view SourceFile::LineEnd(std::size_t index) const {
  const Line& line = Lines()[index];
  const std::string_view rest = std::string_view(Bytes()).substr(line.begin + line.length);
  return rest.substr(0, rest.starts_with("\r\n") ? 2 : 1);
}

std::int32_t SourceFile::FileLine(std::int32_t line) const {
  if (readAgain_) return Whole().FileLine(line);
  const auto above = std::partition_point(hidden_.begin(), hidden_.end(),
                                          [line](const HiddenLine& hidden) { return hidden.after < line; });
  return headerLines_ + static_cast<std::int32_t>(above - hidden_.begin()) + line;
}

std::int32_t SourceFile::CodeLine(std::int32_t fileLine) const {
  const auto lines = std::views::iota(1, CountOfLines() + 1);
  const auto found =
      std::ranges::lower_bound(lines, fileLine, {}, [this](std::int32_t line) { return FileLine(line); });
  return found != lines.end() && FileLine(*found) == fileLine ? *found : 0;
}

}  // namespace quorvane::workbench

#include "workbench/SourceFile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "workbench/ByteScanner.h"
#include "workbench/SourceHeader.h"

namespace quorvane::workbench {

// Line ends are found 64 bytes at a time, as bits of a mask. Attribute lines are so rare that the word is searched for
// over the whole code, and only a line that holds it is looked at.

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

bool IsContinued(std::string_view line) {
  return line.size() >= 2 && line.back() == '_' && (line[line.size() - 2] == ' ' || line[line.size() - 2] == '\t');
}

/// A typical line is longer; where lines are not, the list grows.
constexpr std::size_t kShortLine = 24;

}  // namespace

SourceFile::SourceFile(std::string bytes) : bytes_(std::move(bytes)) {
  const std::string_view all = bytes_;
  const SourceHeader header = ReadSourceHeader(all);
  codeBegin_ = static_cast<std::uint32_t>(header.end);
  headerLines_ = header.lines;
  name_ = header.component;

  static const ByteScanner attributeWord("attribute", false);
  std::size_t nextWord = attributeWord.Find(all, codeBegin_);
  lines_.reserve((all.size() - codeBegin_) / kShortLine + 1);
  CutLines(all, codeBegin_, [&](const FileLineSpan& span) {
    if (nextWord < span.end) {
      nextWord = attributeWord.Find(all, span.end);
      if (TakeHidden(span)) return;
    }
    lines_.push_back({static_cast<std::uint32_t>(span.begin), static_cast<std::uint32_t>(span.end - span.begin)});
  });
}

bool SourceFile::TakeHidden(const FileLineSpan& span) {
  AttributeLine attribute;
  const std::string_view line = std::string_view(bytes_).substr(span.begin, span.end - span.begin);
  if (!ReadAttributeLine(line, attribute)) return false;
  if (!lines_.empty() && IsContinued(LineBytes(lines_.size() - 1))) return false;
  hidden_.push_back({static_cast<std::int32_t>(lines_.size()), static_cast<std::uint32_t>(span.begin),
                     static_cast<std::uint32_t>(span.next)});
  std::string_view name;
  if (name_.empty() && IsNameAttribute(attribute, name)) name_ = name;
  return true;
}

std::string_view SourceFile::LineEnd(std::size_t index) const {
  const std::string_view rest = std::string_view(bytes_).substr(lines_[index].begin + lines_[index].length);
  return rest.substr(0, rest.starts_with("\r\n") ? 2 : 1);
}

std::int32_t SourceFile::FileLine(std::int32_t line) const {
  const auto above = std::partition_point(hidden_.begin(), hidden_.end(),
                                          [line](const HiddenLine& hidden) { return hidden.after < line; });
  return headerLines_ + static_cast<std::int32_t>(above - hidden_.begin()) + line;
}

}  // namespace quorvane::workbench

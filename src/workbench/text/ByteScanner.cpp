#include "workbench/text/ByteScanner.h"

#include <algorithm>
#include <utility>

#include "workbench/text/WideVectors.h"

namespace quorvane::workbench {

// Two bytes of the run, the rarest in program text, are compared at every place of a block of bytes at once, in a loop
// without branches that the compiler turns into vector instructions. Only a block that holds both somewhere is looked
// at place by place.

namespace {

constexpr std::size_t kBlock = 128;

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}
bool IsLetter(char c) {
  return Lower(c) >= 'a' && Lower(c) <= 'z';
}

/// How common a character is in program text: the higher, the commoner.
int Commonness(char c) {
  static constexpr std::string_view kCommonFirst = " etrinaosldcmpfugbhxvywkjqz";
  const std::size_t at = kCommonFirst.find(Lower(c));
  if (at != std::string_view::npos) return static_cast<int>(2 * (kCommonFirst.size() - at)) + 4;
  static constexpr std::string_view kCommonSigns = "().=,\"_";
  return kCommonSigns.find(c) != std::string_view::npos ? 24 : c >= '0' && c <= '9' ? 12 : 1;
}

/// The start of the first block at `i` or after it, with room before `end`, that holds both bytes somewhere, a byte b
/// of `a` being the wanted one where (b | mask) == value; else where the last part of a block begins.
QUORVANE_WIDE_VECTORS
std::size_t FindBlock(const unsigned char* a, unsigned char maskA, unsigned char valueA, const unsigned char* b,
                      unsigned char maskB, unsigned char valueB, std::size_t i, std::size_t end) {
  for (; i + kBlock <= end; i += kBlock) {
    unsigned char any = 0;
    for (std::size_t k = i; k < i + kBlock; ++k) {
      const unsigned char differs = static_cast<unsigned char>(((a[k] | maskA) ^ valueA) | ((b[k] | maskB) ^ valueB));
      any = static_cast<unsigned char>(any | (differs == 0 ? 0xFF : 0));
    }
    if (any != 0) break;
  }
  return i;
}

std::size_t FindBeyondAscii(std::string_view bytes, std::size_t from) {
  std::size_t i = from;
  for (; i + kBlock <= bytes.size(); i += kBlock) {
    unsigned char any = 0;
    for (std::size_t k = i; k < i + kBlock; ++k) any = static_cast<unsigned char>(any | bytes[k]);
    if ((any & 0x80) != 0) break;
  }
  for (; i < bytes.size(); ++i) {
    if ((bytes[i] & 0x80) != 0) return i;
  }
  return std::string_view::npos;
}

}  // namespace

ByteScanner::ByteScanner(std::string_view run, bool matchCase) : run_(run), matchCase_(matchCase) {
  if (run_.empty()) return;
  if (!matchCase_) std::transform(run_.begin(), run_.end(), run_.begin(), Lower);
  std::size_t first = 0;
  std::size_t second = run_.size() - 1;
  if (Commonness(run_[second]) < Commonness(run_[first])) std::swap(first, second);
  for (std::size_t i = 1; i + 1 < run_.size(); ++i) {
    if (Commonness(run_[i]) < Commonness(run_[first])) {
      second = std::exchange(first, i);
    } else if (Commonness(run_[i]) < Commonness(run_[second])) {
      second = i;
    }
  }
  first_ = ProbeAt(first);
  second_ = ProbeAt(second);
}

ByteScanner::Probe ByteScanner::ProbeAt(std::size_t at) const {
  const char c = run_[at];
  const unsigned char mask = !matchCase_ && IsLetter(c) ? 0x20 : 0;
  return {at, mask, static_cast<unsigned char>(c)};
}

bool ByteScanner::MatchesAt(const char* bytes) const {
  if (matchCase_) return std::equal(run_.begin(), run_.end(), bytes);
  return std::equal(run_.begin(), run_.end(), bytes, [](char r, char b) { return r == Lower(b); });
}

ByteScanner ByteScanner::BeyondAscii() {
  ByteScanner scanner;
  scanner.beyondAscii_ = true;
  return scanner;
}

std::size_t ByteScanner::Find(std::string_view bytes, std::size_t from) const {
  if (beyondAscii_) return FindBeyondAscii(bytes, from);
  if (run_.size() > bytes.size()) return std::string_view::npos;
  const std::size_t end = bytes.size() - run_.size() + 1;  // places where the run has room
  const auto* const data = reinterpret_cast<const unsigned char*>(bytes.data());
  const Probe p = first_;
  const Probe q = second_;
  const auto isHit = [&](std::size_t i) {
    return ((data[i + p.at] | p.mask) == p.value) && ((data[i + q.at] | q.mask) == q.value) &&
           MatchesAt(bytes.data() + i);
  };
  std::size_t i = from;
  while (i + kBlock <= end) {
    i = FindBlock(data + p.at, p.mask, p.value, data + q.at, q.mask, q.value, i, end);
    if (i + kBlock > end) break;
    for (const std::size_t next = i + kBlock; i < next; ++i) {
      if (isHit(i)) return i;
    }
  }
  for (; i < end; ++i) {
    if (isHit(i)) return i;
  }
  return std::string_view::npos;
}

}  // namespace quorvane::workbench

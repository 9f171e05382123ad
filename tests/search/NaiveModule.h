#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane::test {

/// What a range of text answers, computed the long way: from copies of the whole text, one character at a time. Tests
/// hold the real thing against it. Lines and characters are 1-based, the end is exclusive.
class NaiveModule {
 public:
  explicit NaiveModule(std::vector<std::u16string> lines) : lines_(std::move(lines)) {}

  std::int32_t Count() const { return static_cast<std::int32_t>(lines_.size()); }
  const std::u16string& Line(std::int32_t y) const { return lines_.at(static_cast<std::size_t>(y) - 1); }
  /// Those of `count` lines from `start` on that exist.
  std::u16string Lines(std::int32_t start, std::int32_t count) const;
  std::u16string Text() const { return Lines(1, Count()); }

  static std::int32_t XToScreenX(std::int32_t x, std::u16string_view s);
  static std::int32_t ScreenXToX(std::int32_t column, std::u16string_view s);

  /// Offset of a place in the text that begins at line `base`, and back.
  std::int32_t Offset(std::int32_t base, std::int32_t y, std::int32_t x) const;
  std::pair<std::int32_t, std::int32_t> Place(std::int32_t base, std::int32_t pos) const;

  std::u16string Match(std::int32_t y1, std::int32_t x1, std::int32_t y2, std::int32_t x2) const;
  bool HasComment(std::int32_t y1, std::int32_t y2, std::int32_t x2) const;

 private:
  std::vector<std::u16string> lines_;
};

/// Random numbers with a seed to print.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : engine_(seed) {}
  /// From 1 to `most`.
  std::int32_t Roll(std::int32_t most) { return std::uniform_int_distribution<std::int32_t>(1, most)(engine_); }
  template <class T>
  const T& Pick(const std::vector<T>& from) {
    return from[static_cast<std::size_t>(Roll(static_cast<std::int32_t>(from.size()))) - 1];
  }

 private:
  std::mt19937 engine_;
};

/// Up to `most` lines of at most 12 pieces of `pieces` each; at least one line.
std::vector<std::u16string> RandomLines(Dice& dice, std::int32_t most, const std::vector<std::u16string>& pieces);
std::u16string JoinLines(const std::vector<std::u16string>& lines);

}  // namespace quorvane::test

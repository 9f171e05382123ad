#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/find/LineMatcher.h"

namespace quorvane::workbench {

/// Finds a pattern: `?` one character, `*` any number of them, `#` a digit, `[list]`, `[!list]`, anything else itself.
/// In a list a-z is a range, `-` at either end itself and so is `[`; `[]` stands for nothing and `[!]` for `!`.
class PatternMatcher final : public LineMatcher {
 public:
  /// Raises error 93, naming the pattern, for a list without end and for a range that descends.
  PatternMatcher(std::u16string_view pattern, const MatchOptions& options);

  bool Next(std::u16string_view line, std::size_t from, std::size_t to, LineMatch& match) const override;
  std::string_view AsciiRun() const override { return asciiRun_; }
  bool NeedsBeyondAscii() const override { return needsBeyondAscii_; }

 private:
  /// A set of states, one bit each: state i means that the elements before i have matched.
  using States = std::vector<std::uint64_t>;

  enum class Kind { Literal, AnyOne, AnyNumber, Digit, List };
  struct Element {
    Kind kind = Kind::Literal;
    bool negated = false;                                 ///< of a list
    char16_t literal = 0;                                 ///< folded unless the case has to match
    std::vector<std::pair<char16_t, char16_t>> ranges{};  ///< of a list; both ends belong to it
  };

  void Parse(std::u16string_view pattern);
  std::size_t ParseList(std::u16string_view pattern, std::size_t at);
  void AddLiteral(char16_t c);
  void NoteLiterals();
  bool Accepts(const Element& element, char16_t c) const;
  bool Lists(const Element& element, char16_t c) const;
  void Prepare();
  void ElementsThatAccept(char16_t c, States& states) const;
  void StepBack(std::u16string_view line, std::size_t at, States& states, States& accepting) const;
  void StepOn(std::u16string_view line, std::size_t at, States& states, States& accepting) const;
  bool FirstBegin(std::u16string_view line, std::size_t from, std::size_t to, std::size_t& begin) const;
  std::size_t LongestEnd(std::u16string_view line, std::size_t begin, std::size_t to) const;
  bool MayEnd(std::u16string_view line, std::size_t at) const;

  std::vector<Element> elements_;
  MatchOptions options_;
  std::string asciiRun_;
  bool needsBeyondAscii_ = false;
  std::size_t words_ = 1;                      ///< of a set of states
  States anyNumber_;                           ///< the elements that are `*`
  std::vector<std::uint64_t> asciiAccepting_;  ///< for each ASCII character the elements that accept it
};

}  // namespace quorvane::workbench

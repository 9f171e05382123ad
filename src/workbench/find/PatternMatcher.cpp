#include "workbench/find/PatternMatcher.h"

#include <algorithm>

#include "base/Error.h"
#include "workbench/find/WordBounds.h"
#include "workbench/text/CaseFold.h"

namespace quorvane::workbench {

// A match costs one pass back and one pass on over the line, whatever the pattern: sets of states take the place of
// backtracking. The pass back carries the states from which some allowed end can be reached; where it holds state 0 a
// match may begin, and the last such place met is the leftmost. The pass on from there remembers the last end at which
// all elements have matched.

namespace {

constexpr std::size_t kAscii = 0x80;
constexpr std::size_t kBits = 64;

[[noreturn]] void RaiseInvalid(std::u16string_view pattern) {
  RaiseError(ErrorNumber::InvalidPattern, ErrorText(ErrorNumber::InvalidPattern) + u": " + std::u16string(pattern));
}

using States = std::vector<std::uint64_t>;

void Set(States& states, std::size_t bit) {
  states[bit / kBits] |= std::uint64_t{1} << (bit % kBits);
}
bool Has(const States& states, std::size_t bit) {
  return (states[bit / kBits] >> (bit % kBits) & 1) != 0;
}
bool None(const States& states) {
  return std::all_of(states.begin(), states.end(), [](std::uint64_t word) { return word == 0; });
}

}  // namespace

PatternMatcher::PatternMatcher(std::u16string_view pattern, const MatchOptions& options) : options_(options) {
  Parse(pattern);
  const auto isStar = [](const Element& element) { return element.kind == Kind::AnyNumber; };
  // Where nothing would match, at least one character has to.
  if (!elements_.empty() && std::all_of(elements_.begin(), elements_.end(), isStar))
    elements_.insert(elements_.begin(), Element{Kind::AnyOne});
  NoteLiterals();
  Prepare();
}

void PatternMatcher::Parse(std::u16string_view pattern) {
  for (std::size_t at = 0; at < pattern.size();) {
    const char16_t c = pattern[at++];
    if (c == u'[') {
      at = ParseList(pattern, at);
    } else if (c == u'?') {
      elements_.push_back({Kind::AnyOne});
    } else if (c == u'#') {
      elements_.push_back({Kind::Digit});
    } else if (c != u'*') {
      AddLiteral(c);
    } else if (elements_.empty() || elements_.back().kind != Kind::AnyNumber) {
      elements_.push_back({Kind::AnyNumber});
    }
  }
}

/// Takes the list whose bracket stands before `at`; gives the place after it.
std::size_t PatternMatcher::ParseList(std::u16string_view pattern, std::size_t at) {
  const std::size_t close = pattern.find(u']', at);
  if (close == pattern.npos) RaiseInvalid(pattern);
  std::u16string_view list = pattern.substr(at, close - at);
  Element element{Kind::List};
  if (list == u"!") {
    AddLiteral(u'!');
    return close + 1;
  }
  if (list.starts_with(u'!')) {
    element.negated = true;
    list.remove_prefix(1);
  }
  for (std::size_t i = 0; i < list.size();) {
    const bool isRange = i + 2 < list.size() && list[i] != u'-' && list[i + 1] == u'-';
    const char16_t last = isRange ? list[i + 2] : list[i];
    if (last < list[i]) RaiseInvalid(pattern);
    element.ranges.emplace_back(list[i], last);
    i += isRange ? 3 : 1;
  }
  if (!list.empty()) elements_.push_back(std::move(element));
  return close + 1;
}

void PatternMatcher::AddLiteral(char16_t c) {
  Element element;
  element.literal = options_.matchCase ? c : CaseFold::Of(c);
  elements_.push_back(std::move(element));
}

void PatternMatcher::NoteLiterals() {
  std::string run;
  for (const Element& element : elements_) {
    const bool beyondAscii = element.literal >= kAscii;
    if (element.kind != Kind::Literal || beyondAscii) {
      run.clear();
      needsBeyondAscii_ = needsBeyondAscii_ || beyondAscii;
      continue;
    }
    run.push_back(static_cast<char>(element.literal));
    if (run.size() > asciiRun_.size()) asciiRun_ = run;
  }
}

bool PatternMatcher::Lists(const Element& element, char16_t c) const {
  const auto holds = [&element](char16_t unit) {
    return std::any_of(element.ranges.begin(), element.ranges.end(),
                       [unit](const auto& range) { return range.first <= unit && unit <= range.second; });
  };
  return holds(c) || (!options_.matchCase && (holds(CaseFold::Of(c)) || holds(CaseFold::Capital(c))));
}

bool PatternMatcher::Accepts(const Element& element, char16_t c) const {
  switch (element.kind) {
    case Kind::Literal:
      return (options_.matchCase ? c : CaseFold::Of(c)) == element.literal;
    case Kind::Digit:
      return c >= u'0' && c <= u'9';
    case Kind::List:
      return Lists(element, c) != element.negated;
    case Kind::AnyOne:
    case Kind::AnyNumber:
      break;
  }
  return true;
}

void PatternMatcher::Prepare() {
  words_ = elements_.size() / kBits + 1;
  anyNumber_.assign(words_, 0);
  asciiAccepting_.assign(kAscii * words_, 0);
  for (std::size_t i = 0; i < elements_.size(); ++i) {
    if (elements_[i].kind == Kind::AnyNumber) Set(anyNumber_, i);
    for (std::size_t c = 0; c < kAscii; ++c) {
      if (Accepts(elements_[i], static_cast<char16_t>(c)))
        asciiAccepting_[c * words_ + i / kBits] |= std::uint64_t{1} << (i % kBits);
    }
  }
}

void PatternMatcher::ElementsThatAccept(char16_t c, States& states) const {
  if (c < kAscii) {
    std::copy_n(asciiAccepting_.begin() + static_cast<std::ptrdiff_t>(c * words_), words_, states.begin());
    return;
  }
  std::fill(states.begin(), states.end(), 0);
  for (std::size_t i = 0; i < elements_.size(); ++i) {
    if (Accepts(elements_[i], c)) Set(states, i);
  }
}

/// From the states from which an end can be reached after `at` to those at `at`.
void PatternMatcher::StepBack(std::u16string_view line, std::size_t at, States& states, States& accepting) const {
  ElementsThatAccept(line[at], accepting);
  for (std::size_t w = 0; w < words_; ++w) {
    const std::uint64_t carry = w + 1 < words_ ? states[w + 1] << (kBits - 1) : 0;
    states[w] = (((states[w] >> 1) | carry) & accepting[w]) | (states[w] & anyNumber_[w]);
  }
  if (MayEnd(line, at)) Set(states, elements_.size());
  for (std::size_t w = 0; w < words_; ++w) {
    const std::uint64_t carry = w + 1 < words_ ? states[w + 1] << (kBits - 1) : 0;
    states[w] |= ((states[w] >> 1) | carry) & anyNumber_[w];
  }
}

/// From the states at `at` to those after the character there.
void PatternMatcher::StepOn(std::u16string_view line, std::size_t at, States& states, States& accepting) const {
  ElementsThatAccept(line[at], accepting);
  std::uint64_t carry = 0;
  std::uint64_t starCarry = 0;
  for (std::size_t w = 0; w < words_; ++w) {
    const std::uint64_t moved = states[w] & accepting[w];
    states[w] = (moved << 1) | carry | (states[w] & anyNumber_[w]);
    carry = moved >> (kBits - 1);
    const std::uint64_t stars = states[w] & anyNumber_[w];
    states[w] |= (stars << 1) | starCarry;
    starCarry = stars >> (kBits - 1);
  }
}

bool PatternMatcher::MayEnd(std::u16string_view line, std::size_t at) const {
  return !options_.wholeWord || WordMayEnd(line, at);
}

bool PatternMatcher::FirstBegin(std::u16string_view line, std::size_t from, std::size_t to, std::size_t& begin) const {
  States states(words_, 0);
  States accepting(words_, 0);
  if (MayEnd(line, to)) {
    Set(states, elements_.size());
    if (elements_.back().kind == Kind::AnyNumber) Set(states, elements_.size() - 1);
  }
  bool found = false;
  for (std::size_t at = to; at-- > from;) {
    StepBack(line, at, states, accepting);
    if (!Has(states, 0) || (options_.wholeWord && !WordMayBegin(line, at))) continue;
    begin = at;
    found = true;
  }
  return found;
}

std::size_t PatternMatcher::LongestEnd(std::u16string_view line, std::size_t begin, std::size_t to) const {
  States states(words_, 0);
  States accepting(words_, 0);
  Set(states, 0);
  if (elements_.front().kind == Kind::AnyNumber) Set(states, 1);
  std::size_t longest = begin;
  for (std::size_t at = begin; at < to && !None(states); ++at) {
    StepOn(line, at, states, accepting);
    if (Has(states, elements_.size()) && MayEnd(line, at + 1)) longest = at + 1;
  }
  return longest;
}

bool PatternMatcher::Next(std::u16string_view line, std::size_t from, std::size_t to, LineMatch& match) const {
  std::size_t begin = 0;
  if (elements_.empty() || !FirstBegin(line, from, to, begin)) return false;
  match = {begin, LongestEnd(line, begin, to)};
  return true;
}

}  // namespace quorvane::workbench

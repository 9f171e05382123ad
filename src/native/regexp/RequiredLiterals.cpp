// Each sequence keeps the run of literals that touch and, of all runs and groups it has passed, the one that promises
// most. A run is ended by whatever may match other text; a token that may be left out counts for nothing. Alternatives
// promise one of what each of them promises, and nothing as soon as one of them promises nothing. The last token waits
// until it is known that no quantifier follows.

#include "native/regexp/RequiredLiterals.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quorvane::native {

namespace {

constexpr std::size_t kMostTexts = 8;      ///< more are not worth looking for one by one
constexpr std::size_t kLongEnough = 16;    ///< a longer text excludes no more
constexpr std::size_t kAlternativeCost = 3;  ///< one more text to look for costs what this many characters gain

/// What a set of texts is worth: the shortest text lets the most through, and each one is looked for.
std::size_t Worth(const std::vector<std::string>& texts) {
  if (texts.empty() || texts.size() > kMostTexts) return 0;
  std::size_t shortest = kLongEnough;
  for (const std::string& text : texts) shortest = std::min(shortest, text.size());
  return 1 + (shortest + kMostTexts) * kAlternativeCost - texts.size();
}

}  // namespace

RequiredLiterals::RequiredLiterals(bool foldsBeyondAscii) : foldsBeyondAscii_(foldsBeyondAscii), groups_(1) {}

bool RequiredLiterals::Better(const Texts& a, const Texts& b) {
  return Worth(a) > Worth(b);
}

void RequiredLiterals::Literal(char16_t c) {
  CommitAtom();
  const char16_t lower = c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
  const bool folds = foldsBeyondAscii_ && (lower == u'k' || lower == u's');
  // A line break in a file may be one byte where the text has two.
  if (c >= 0x80 || c == u'\r' || c == u'\n' || folds) return Other();
  atom_ = Atom::Literal;
  literal_ = static_cast<char>(c);
}

void RequiredLiterals::Other() {
  CommitAtom();
  atom_ = Atom::Texts;
  texts_.clear();
}

void RequiredLiterals::OpenGroup(bool isLookAhead) {
  CommitAtom();
  Group group;
  group.outside = std::exchange(sequence_, {});
  group.isLookAhead = isLookAhead;
  groups_.push_back(std::move(group));
}

void RequiredLiterals::CloseGroup() {
  const bool isLookAhead = groups_.back().isLookAhead;
  Texts texts = EndGroup();
  sequence_ = std::move(groups_.back().outside);
  groups_.pop_back();
  if (isLookAhead) return;
  atom_ = Atom::Texts;
  texts_ = std::move(texts);
}

void RequiredLiterals::Alternative() {
  EndAlternative();
}

void RequiredLiterals::Quantifier(std::size_t least) {
  if (atom_ == Atom::Literal) {
    if (least > 0) sequence_.run += literal_;
    EndRun();
    if (least > 0) sequence_.run = literal_;  // its last repetition touches what follows
    atom_ = Atom::None;
  } else if (least == 0) {
    texts_.clear();
  }
}

/// The waiting token becomes part of the sequence.
void RequiredLiterals::CommitAtom() {
  const Atom atom = std::exchange(atom_, Atom::None);
  if (atom == Atom::Literal) {
    sequence_.run += literal_;
  } else if (atom == Atom::Texts) {
    EndRun();
    if (Better(texts_, sequence_.best)) sequence_.best = std::move(texts_);
  }
}

void RequiredLiterals::EndRun() {
  if (sequence_.run.empty()) return;
  Texts run{std::exchange(sequence_.run, {})};
  if (Better(run, sequence_.best)) sequence_.best = std::move(run);
}

void RequiredLiterals::EndAlternative() {
  CommitAtom();
  EndRun();
  Group& group = groups_.back();
  group.known = group.known && !sequence_.best.empty();
  std::ranges::move(sequence_.best, std::back_inserter(group.alternatives));
  sequence_ = {};
}

RequiredLiterals::Texts RequiredLiterals::EndGroup() {
  EndAlternative();
  Group& group = groups_.back();
  std::ranges::sort(group.alternatives);
  const auto twice = std::ranges::unique(group.alternatives);
  group.alternatives.erase(twice.begin(), twice.end());
  const bool useful = group.known && group.alternatives.size() <= kMostTexts;
  return useful ? std::move(group.alternatives) : Texts();
}

std::vector<std::string> RequiredLiterals::Take() {
  return EndGroup();
}

}  // namespace quorvane::native

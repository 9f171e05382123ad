#include "native/regexp/PcreRegExp.h"

#include <algorithm>

#include "base/Checked.h"
#include "base/Error.h"
#include "native/codepages/AsciiRun.h"
#include "native/regexp/PcrePattern.h"
#include "native/regexp/ReplacementTemplate.h"

namespace quorvane::native {

namespace {

bool HasSeparators(std::u16string_view text) {
  constexpr std::size_t kBlock = 4096;
  for (; !text.empty(); text.remove_prefix(std::min(kBlock, text.size()))) {
    bool any = false;  // no early way out of a block, so that it runs many units at a time
    for (const char16_t c : text.substr(0, kBlock)) any |= (c | 1) == 0x2029;
    if (any) return true;
  }
  return false;
}

}  // namespace

PcreRegExp::PcreRegExp() = default;
PcreRegExp::~PcreRegExp() = default;

void PcreRegExp::ReadPattern() {
  const bool same = read_ && readMultiline_ == Multiline && readIgnoreCase_ == IgnoreCase && readPattern_ == Pattern;
  if (same) return;
  read_ = false;
  usual_.reset();
  withSeparators_.reset();
  readPattern_ = Pattern;
  readMultiline_ = Multiline;
  readIgnoreCase_ = IgnoreCase;
  mudtTraits = PatternTranslator(readPattern_, {}).Translate();
  unicodeCase_ = IgnoreCase && (mudtTraits.HasNonAscii || mudtTraits.HasBackReference);
  required_ = unicodeCase_ ? PatternTranslator(readPattern_, {.UnicodeCase = true}).Translate().RequiredLiterals
                           : mudtTraits.RequiredLiterals;
  read_ = true;
}

std::unique_ptr<PcrePattern> PcreRegExp::Compile(DotForm dot) const {
  const TranslationOptions options{readMultiline_, unicodeCase_, dot};
  return std::make_unique<PcrePattern>(readPattern_, PatternTranslator(readPattern_, options).Translate(),
                                       readMultiline_, readIgnoreCase_, unicodeCase_);
}

PcrePattern& PcreRegExp::PatternFor(std::u16string_view text) {
  ReadPattern();
  if (mudtTraits.HasDot && HasSeparators(text)) {
    if (!withSeparators_) withSeparators_ = Compile(DotForm::Separators);
    return *withSeparators_;
  }
  if (!usual_) usual_ = Compile(mudtTraits.MayMatchLineFeed ? DotForm::Breaks : DotForm::Plain);
  return *usual_;
}

template <class Visitor>
void PcreRegExp::ForEachMatch(std::u16string_view text, bool all, Visitor visit) {
  PcrePattern& pattern = PatternFor(text);
  // The engine's machine code compares a group's text with the case of ASCII letters alone folded.
  const bool foldsGroups = IgnoreCase && mudtTraits.HasBackReference;
  pattern.StartSearch(foldsGroups && AsciiRun(text, 0) < text.size());
  for (std::size_t at = 0; at <= text.size() && pattern.Find(text, at);) {
    const std::span<const std::size_t> bounds = pattern.Bounds();
    visit(bounds);
    if (!all) return;
    at = bounds[1] > bounds[0] ? bounds[1] : bounds[1] + 1;
  }
}

std::vector<std::string> PcreRegExp::RequiredTexts() {
  try {
    ReadPattern();
  } catch (const Error&) {
    return {};
  }
  return required_;
}

std::vector<RegExpMatch> PcreRegExp::Execute(std::u16string_view text) {
  std::vector<RegExpMatch> matches;
  Checked32(static_cast<std::int64_t>(text.size()));
  ForEachMatch(text, Global, [&](std::span<const std::size_t> bounds) {
    matches.push_back({static_cast<std::int32_t>(bounds[0]), static_cast<std::int32_t>(bounds[1] - bounds[0])});
  });
  return matches;
}

bool PcreRegExp::Test(std::u16string_view text) {
  bool found = false;
  ForEachMatch(text, false, [&](std::span<const std::size_t>) { found = true; });
  return found;
}

std::u16string PcreRegExp::Replace(std::u16string_view text, std::u16string_view replacement) {
  ReadPattern();
  const ReplacementTemplate pieces(replacement, mudtTraits.GroupCount);
  std::u16string out;
  std::size_t copied = 0;
  ForEachMatch(text, Global, [&](std::span<const std::size_t> bounds) {
    out.append(text.substr(copied, bounds[0] - copied));
    pieces.AppendTo(out, text, bounds);
    copied = bounds[1];
  });
  return out.append(text.substr(copied));
}

}  // namespace quorvane::native

#include "workbench/text/StatementScanner.h"

#include <algorithm>
#include <array>

#include "base/Text.h"

namespace quorvane::workbench {

// A line of code is cut into statements at its colons; strings are skipped, and a comment ends the line. Of a statement
// only the first words are looked at, as much as tells whether it begins or ends a procedure. Nothing is parsed that
// this does not need, so that code that would not compile does no harm: a header that cannot be read counts as any
// other statement.

namespace {

using Kind = Statement::Kind;
using vbide::ProcKind;

bool IsBlank(char16_t c) {
  return c == u' ' || c == u'\t';
}
bool IsDigit(char16_t c) {
  return c >= u'0' && c <= u'9';
}
bool IsNameUnit(char16_t c) {
  const char16_t lower = ToLowerAscii(c);
  return (lower >= u'a' && lower <= u'z') || IsDigit(c) || c == u'_' || c >= 0x80;
}

std::u16string_view SkipBlanks(std::u16string_view text) {
  const auto first = std::find_if_not(text.begin(), text.end(), IsBlank);
  return text.substr(static_cast<std::size_t>(first - text.begin()));
}

/// Takes the word that `rest` begins with, blanks before it skipped; empty when there is none.
std::u16string_view TakeWord(std::u16string_view& rest) {
  rest = SkipBlanks(rest);
  const auto end = std::find_if_not(rest.begin(), rest.end(), IsNameUnit);
  const std::u16string_view word = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
  rest.remove_prefix(word.size());
  return word;
}

bool Is(std::u16string_view word, std::u16string_view keyword) {
  return EqualsNoCaseAscii(word, keyword);
}

template <std::size_t N>
bool IsOneOf(std::u16string_view word, const std::array<std::u16string_view, N>& keywords) {
  return std::any_of(keywords.begin(), keywords.end(), [word](auto keyword) { return Is(word, keyword); });
}

constexpr std::array<std::u16string_view, 5> kModifiers = {u"Public", u"Private", u"Friend", u"Static", u"Global"};
constexpr std::array<std::u16string_view, 3> kProcedures = {u"Sub", u"Function", u"Property"};

/// The name that a header gives: a word that does not begin with a digit, or anything in brackets.
std::u16string_view TakeName(std::u16string_view rest) {
  rest = SkipBlanks(rest);
  if (rest.starts_with(u'[')) {
    const std::size_t close = rest.find(u']');
    return close == rest.npos ? std::u16string_view() : rest.substr(1, close - 1);
  }
  const std::u16string_view name = TakeWord(rest);
  if (!name.empty() && IsDigit(name.front())) return {};
  return Is(name, u"As") ? std::u16string_view() : name;  // a member of a Type with the name of a keyword
}

Statement ReadDirective(std::u16string_view rest) {
  const std::u16string_view word = TakeWord(rest);
  if (Is(word, u"If")) return {Kind::If};
  if (Is(word, u"End") && Is(TakeWord(rest), u"If")) return {Kind::EndIf};
  return {Kind::Directive};
}

Statement ReadStatement(std::u16string_view rest) {
  rest = SkipBlanks(rest);
  if (rest.starts_with(u'#')) return ReadDirective(rest.substr(1));
  std::u16string_view word = TakeWord(rest);
  if (!word.empty() && std::all_of(word.begin(), word.end(), IsDigit)) word = TakeWord(rest);  // a line number
  if (word.empty() && SkipBlanks(rest).empty()) return {Kind::None};
  if (Is(word, u"End")) return {IsOneOf(TakeWord(rest), kProcedures) ? Kind::End : Kind::Other};
  while (IsOneOf(word, kModifiers)) word = TakeWord(rest);
  if (!IsOneOf(word, kProcedures)) return {Kind::Other};

  Statement header{Kind::Header};
  if (Is(word, u"Property")) {
    const std::u16string_view accessor = TakeWord(rest);
    if (Is(accessor, u"Get")) {
      header.procKind = ProcKind::Get;
    } else if (Is(accessor, u"Let")) {
      header.procKind = ProcKind::Let;
    } else if (Is(accessor, u"Set")) {
      header.procKind = ProcKind::Set;
    } else {
      return {Kind::Other};
    }
  }
  if (rest.empty() || !(IsBlank(rest.front()) || rest.front() == u'[')) return {Kind::Other};
  header.name = TakeName(rest);
  return header.name.empty() ? Statement{Kind::Other} : header;
}

}  // namespace

bool StatementScanner::Next(Statement& statement) {
  if (done_) return false;
  statement = ReadStatement(TakeStatement());
  return true;
}

/// Takes what stands before the next colon or comment.
std::u16string_view StatementScanner::TakeStatement() {
  std::u16string_view first = rest_;
  if (Is(TakeWord(first), u"Rem")) {
    done_ = true;
    return {};
  }
  bool inString = false;
  for (std::size_t i = 0; i < rest_.size(); ++i) {
    const char16_t c = rest_[i];
    if (c == u'"') inString = !inString;
    if (inString || (c != u':' && c != u'\'')) continue;
    const std::u16string_view statement = rest_.substr(0, i);
    done_ = c == u'\'';
    rest_.remove_prefix(i + 1);
    return statement;
  }
  done_ = true;
  return rest_;
}

}  // namespace quorvane::workbench

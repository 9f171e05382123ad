#include "desktop/navigate/CodeWord.h"

#include <algorithm>

namespace quorvane::desktop {

namespace {

bool IsOfName(QChar c) {
  return c.isLetterOrNumber() || c == QLatin1Char('_') || c.isSurrogate();
}

/// Where the run of characters of names begins that ends before `end`.
qsizetype BeginOf(const QString& line, qsizetype end) {
  qsizetype begin = end;
  while (begin > 0 && IsOfName(line[begin - 1])) --begin;
  return begin;
}

}  // namespace

CodeWord CodeWord::At(const QString& line, int column) {
  qsizetype end = std::clamp<qsizetype>(column, 0, line.size());
  const qsizetype begin = BeginOf(line, end);
  while (end < line.size() && IsOfName(line[end])) ++end;
  CodeWord word;
  if (begin == end || line[begin].isDigit()) return word;
  word.name = line.mid(begin, end - begin);
  word.begin = static_cast<int>(begin);
  word.dotted = begin > 0 && (line[begin - 1] == QLatin1Char('.') || line[begin - 1] == QLatin1Char('!'));
  if (word.dotted) {
    const qsizetype ownerBegin = BeginOf(line, begin - 1);
    word.owner = line.mid(ownerBegin, begin - 1 - ownerBegin);
  }
  return word;
}

}  // namespace quorvane::desktop

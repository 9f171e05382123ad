#include "desktop/navigate/LetterMatch.h"

#include <algorithm>
#include <cstdint>

namespace quorvane::desktop {

namespace {

constexpr int kWhole = 60000, kBeginning = 50000, kWordRun = 40000, kRun = 30000, kWords = 20000, kAnywhere = 10000;
constexpr int kLongest = 9000;  // so that a length never lifts a name over another kind
constexpr qsizetype kMaskBits = 64;

QChar Fold(QChar c) {
  return c.toCaseFolded();
}

bool BeginsWord(QStringView name, qsizetype at) {
  if (at == 0) return true;
  const QChar before = name[at - 1], c = name[at];
  if (!c.isLetterOrNumber()) return false;
  if (!before.isLetterOrNumber()) return true;
  return (c.isUpper() && !before.isUpper()) || (c.isDigit() != before.isDigit()) ||
         (c.isUpper() && at + 1 < name.size() && name[at + 1].isLower());
}

/// Each letter follows the one before it or begins a word. A set of places is a mask, the first place the lowest bit.
bool FitsWords(QStringView letters, QStringView name) {
  const qsizetype length = std::min(name.size(), kMaskBits);
  std::uint64_t begins = 0;
  for (qsizetype i = 0; i < length; ++i) begins |= std::uint64_t{BeginsWord(name, i)} << i;
  std::uint64_t reached = 0;  // where the letters so far can end
  for (qsizetype l = 0; l < letters.size(); ++l) {
    std::uint64_t same = 0;
    for (qsizetype i = 0; i < length; ++i) same |= std::uint64_t{Fold(name[i]) == Fold(letters[l])} << i;
    if (l == 0) {
      reached = same & begins;
    } else {
      const std::uint64_t lowest = reached & (~reached + 1);
      const std::uint64_t above = ~((lowest << 1) - 1);
      reached = same & ((reached << 1) | (begins & above));
    }
    if (reached == 0) return false;
  }
  return true;
}

bool FitsAnywhere(QStringView letters, QStringView name) {
  qsizetype at = 0;
  for (const QChar letter : letters) {
    while (at < name.size() && Fold(name[at]) != Fold(letter)) ++at;
    if (at++ >= name.size()) return false;
  }
  return true;
}

}  // namespace

int LetterMatch(QStringView letters, QStringView name) {
  if (!FitsAnywhere(letters, name)) return 0;
  const int shortness = kLongest - static_cast<int>(std::min<qsizetype>(name.size(), kLongest - 1));
  int run = 0;
  for (qsizetype at = name.indexOf(letters, 0, Qt::CaseInsensitive); at >= 0;
       at = name.indexOf(letters, at + 1, Qt::CaseInsensitive)) {
    const int kind =
        at == 0 ? (letters.size() == name.size() ? kWhole : kBeginning) : (BeginsWord(name, at) ? kWordRun : kRun);
    run = std::max(run, kind);
    if (at + 1 >= name.size()) break;
  }
  if (run > 0) return run + shortness;
  return (FitsWords(letters, name) ? kWords : kAnywhere) + shortness;
}

}  // namespace quorvane::desktop

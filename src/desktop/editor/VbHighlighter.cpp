#include "desktop/editor/VbHighlighter.h"

#include <QSet>
#include <QString>

namespace quorvane::desktop {

namespace {

constexpr int kPlain = 0;
constexpr int kInComment = 1;    ///< the comment goes on in the next line
constexpr int kInStatement = 2;  ///< the statement goes on in the next line

const QSet<QString>& Keywords() {
  static const QSet<QString> words = [] {
    const QString all = QStringLiteral(
        "addressof alias and any append as base binary boolean byref byte byval call case cbool cbyte ccur cdate cdbl "
        "cint class clng close compare const csng cstr currency cvar date debug declare defbool defbyte defcur defdate "
        "defdbl defint deflng defobj defsng defstr defvar dim do double each else elseif empty end enum eqv erase "
        "error event exit explicit false for friend function get global gosub goto if imp implements in input integer "
        "is let lib like line lock long loop lset me mod module name new next not nothing null object on open option "
        "optional or output paramarray preserve print private property public put raiseevent random read redim resume "
        "return rset seek select set single spc static step stop string sub tab then to true type typeof unlock until "
        "variant wend while width with withevents write xor");
    const QStringList list = all.split(QLatin1Char(' '));
    return QSet<QString>(list.begin(), list.end());
  }();
  return words;
}

bool IsWordBegin(QChar c) {
  return c.isLetter() || c == QLatin1Char('_');
}

bool IsWordPart(QChar c) {
  return c.isLetterOrNumber() || c == QLatin1Char('_');
}

bool IsContinued(const QString& text) {
  return text.endsWith(QLatin1String(" _")) || text == QLatin1String("_");
}

qsizetype EndOfString(const QString& text, qsizetype from) {
  const qsizetype end = text.indexOf(QLatin1Char('"'), from + 1);
  return end < 0 ? text.size() : end + 1;
}

/// Decimal numbers with exponent and type sign, and &H, &O ones.
qsizetype EndOfNumber(const QString& text, qsizetype from) {
  qsizetype at = from;
  const bool radix = text[at] == QLatin1Char('&');
  if (radix) at += 2;
  while (at < text.size() && (text[at].isDigit() || text[at] == QLatin1Char('.') || (radix && IsWordPart(text[at])))) {
    ++at;
  }
  const bool exponent =
      !radix && at + 1 < text.size() && text[at].toLower() == QLatin1Char('e') &&
      (text[at + 1].isDigit() || text[at + 1] == QLatin1Char('-') || text[at + 1] == QLatin1Char('+'));
  if (exponent) {
    at += 2;
    while (at < text.size() && text[at].isDigit()) ++at;
  }
  if (at < text.size() && QStringLiteral("%&!#@").contains(text[at])) ++at;
  return at;
}

bool BeginsNumber(const QString& text, qsizetype at) {
  if (text[at].isDigit()) return true;
  if (text[at] != QLatin1Char('&') || at + 1 >= text.size()) return false;
  const QChar radix = text[at + 1].toLower();
  return radix == QLatin1Char('h') || radix == QLatin1Char('o');
}

}  // namespace

VbHighlighter::VbHighlighter(QTextDocument* document, const CodeColors& colors)
    : QSyntaxHighlighter(document), colors_(colors) {}

void VbHighlighter::SetColors(const CodeColors& colors) {
  colors_ = colors;
  rehighlight();
}

void VbHighlighter::Paint(qsizetype from, qsizetype to, const QColor& color) {
  setFormat(static_cast<int>(from), static_cast<int>(to - from), color);
}

/// A word from `at` on; returns its end. A comment takes the rest of the line.
qsizetype VbHighlighter::TakeWord(const QString& text, qsizetype at, bool& statementBegins) {
  qsizetype end = at;
  while (end < text.size() && IsWordPart(text[end])) ++end;
  const QString word = text.mid(at, end - at).toLower();
  if (word == QLatin1String("rem") && statementBegins) {
    Paint(at, text.size(), colors_.comment);
    if (IsContinued(text)) setCurrentBlockState(kInComment);
    return text.size();
  }
  const bool member = at > 0 && (text[at - 1] == QLatin1Char('.') || text[at - 1] == QLatin1Char('!'));
  if (!member && Keywords().contains(word)) Paint(at, end, colors_.keyword);
  statementBegins = word == QLatin1String("then") || word == QLatin1String("else");
  return end;
}

void VbHighlighter::highlightBlock(const QString& text) {
  const int before = previousBlockState();
  setCurrentBlockState(IsContinued(text) ? kInStatement : kPlain);
  if (before == kInComment) {
    Paint(0, text.size(), colors_.comment);
    if (IsContinued(text)) setCurrentBlockState(kInComment);
    return;
  }
  bool statementBegins = before != kInStatement;
  for (qsizetype at = 0; at < text.size();) {
    const QChar c = text[at];
    if (c == QLatin1Char('\'')) {
      Paint(at, text.size(), colors_.comment);
      if (IsContinued(text)) setCurrentBlockState(kInComment);
      return;
    }
    if (c == QLatin1Char('#') && statementBegins) {
      Paint(at, text.size(), colors_.directive);
      return;
    }
    const qsizetype from = at;
    if (c == QLatin1Char('"')) {
      at = EndOfString(text, at);
      Paint(from, at, colors_.text);
      statementBegins = false;
    } else if (IsWordBegin(c)) {
      at = TakeWord(text, at, statementBegins);
    } else if (BeginsNumber(text, at)) {
      at = EndOfNumber(text, at);
      Paint(from, at, colors_.number);  // a line number keeps a statement from having begun
    } else {
      if (c == QLatin1Char(':')) {
        statementBegins = true;
      } else if (!c.isSpace()) {
        statementBegins = false;
      }
      ++at;
    }
  }
}

}  // namespace quorvane::desktop

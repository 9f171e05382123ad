// One pass over a line. What a line can leave open for the next one is a comment or a tag, and the state of a block
// says which.

#include "desktop/dialogs/XmlHighlighter.h"

#include <QColor>

namespace quorvane::desktop {

namespace {

enum State { kText = -1, kInTag = 1, kInComment = 2 };

bool IsNamePart(QChar c) {
  return c.isLetterOrNumber() || c == u':' || c == u'-' || c == u'_' || c == u'.';
}

QTextCharFormat Format(const QColor& color) {
  QTextCharFormat format;
  format.setForeground(color);
  return format;
}

}  // namespace

XmlHighlighter::XmlHighlighter(QTextDocument* document, bool dark)
    : QSyntaxHighlighter(document),
      name_(Format(dark ? QColor(0x7F, 0xB5, 0xF0) : QColor(0x14, 0x3F, 0xA8))),
      attribute_(Format(dark ? QColor(0xD9, 0xA8, 0x6C) : QColor(0x8F, 0x45, 0x00))),
      value_(Format(dark ? QColor(0x9B, 0xD0, 0x8C) : QColor(0x1E, 0x6B, 0x2B))),
      comment_(Format(dark ? QColor(0x8E, 0x95, 0x9C) : QColor(0x6E, 0x76, 0x7E))) {}

/// From inside a tag to after its end, or to the end of the line; the state says which.
int XmlHighlighter::Tag(const QString& text, int at) {
  const int length = static_cast<int>(text.size());
  while (at < length) {
    const QChar c = text[at];
    if (c == u'>') {
      setFormat(at, 1, name_);
      return at + 1;
    }
    int end = at + 1;
    if (c == u'"' || c == u'\'') {
      while (end < length && text[end] != c) ++end;
      end = std::min(end + 1, length);
      setFormat(at, end - at, value_);
    } else if (IsNamePart(c)) {
      while (end < length && IsNamePart(text[end])) ++end;
      const bool ofTag = at > 0 && (text[at - 1] == u'<' || text[at - 1] == u'/' || text[at - 1] == u'?');
      setFormat(at, end - at, ofTag ? name_ : attribute_);
    } else if (!c.isSpace()) {
      setFormat(at, 1, name_);
    }
    at = end;
  }
  setCurrentBlockState(kInTag);
  return at;
}

void XmlHighlighter::highlightBlock(const QString& text) {
  setCurrentBlockState(kText);
  const int length = static_cast<int>(text.size());
  int at = previousBlockState() == kInTag ? Tag(text, 0) : 0;
  bool inComment = previousBlockState() == kInComment;
  while (at < length || inComment) {
    const int start = inComment ? at : static_cast<int>(text.indexOf(u'<', at));
    if (start < 0) return;
    if (!inComment && !QStringView(text).mid(start).startsWith(u"<!--")) {
      at = Tag(text, start);
      continue;
    }
    const int end = static_cast<int>(text.indexOf(QLatin1String("-->"), start));
    const int behind = end < 0 ? length : end + 3;
    setFormat(start, behind - start, comment_);
    if (end < 0) return setCurrentBlockState(kInComment);
    at = behind;
    inComment = false;
  }
}

}  // namespace quorvane::desktop

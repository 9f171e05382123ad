#pragma once

#include <QSyntaxHighlighter>
#include <QTextCharFormat>

namespace quorvane::desktop {

/// Colours for XML: names, attributes, values and comments, on light and on dark ground.
class XmlHighlighter final : public QSyntaxHighlighter {
 public:
  /// The document owns it.
  XmlHighlighter(QTextDocument* document, bool dark);

 protected:
  void highlightBlock(const QString& text) override;

 private:
  int Tag(const QString& text, int at);

  QTextCharFormat name_;
  QTextCharFormat attribute_;
  QTextCharFormat value_;
  QTextCharFormat comment_;
};

}  // namespace quorvane::desktop

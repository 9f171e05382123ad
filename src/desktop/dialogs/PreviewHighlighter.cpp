#include "desktop/dialogs/PreviewHighlighter.h"

#include <QTextBlock>
#include <QTextFragment>

namespace quorvane::desktop {

void PreviewHighlighter::highlightBlock(const QString& text) {
  VbHighlighter::highlightBlock(text);
  const QTextBlock block = currentBlock();
  for (auto at = block.begin(); !at.atEnd(); ++at) {
    const QTextFragment part = at.fragment();
    if (!part.charFormat().hasProperty(QTextFormat::ForegroundBrush)) continue;
    setFormat(part.position() - block.position(), part.length(), part.charFormat());
  }
}

}  // namespace quorvane::desktop

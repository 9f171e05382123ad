#include "desktop/editor/MarkRuler.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cstdlib>

#include "desktop/editor/CodeColors.h"
#include "desktop/editor/CodeEdit.h"
#include "desktop/editor/CodeMarks.h"

namespace quorvane::desktop {

MarkRuler::MarkRuler(CodeEdit& editor) : QWidget(&editor), editor_(editor) {
  setCursor(Qt::PointingHandCursor);
  hide();
}

void MarkRuler::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const CodeColors colors = CodeColors::Of(editor_.palette());
  painter.fillRect(event->rect(), colors.gutter);
  const int lines = std::max(1, editor_.blockCount());
  int last = -1;
  for (const int line : editor_.Marks().Lines()) {
    const int top = static_cast<int>(static_cast<qint64>(height() - 2) * line / lines);
    if (top == last) continue;
    last = top;
    painter.fillRect(2, top, kWidth - 4, 2, colors.markOnRuler);
  }
}

void MarkRuler::mousePressEvent(QMouseEvent* event) {
  const std::vector<int> lines = editor_.Marks().Lines();
  if (lines.empty() || event->button() != Qt::LeftButton) return;
  const int wanted = static_cast<int>(event->position().y() * editor_.blockCount() / std::max(1, height() - 2));
  const auto nearest = std::ranges::min_element(lines, {}, [wanted](int line) { return std::abs(line - wanted); });
  editor_.GoToLine(*nearest + 1);
}

}  // namespace quorvane::desktop

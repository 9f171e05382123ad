#include "desktop/editor/LineNumbers.h"

#include <QPaintEvent>

#include "desktop/editor/CodeEdit.h"

namespace quorvane::desktop {

LineNumbers::LineNumbers(CodeEdit& editor) : QWidget(&editor), editor_(editor) {}

QSize LineNumbers::sizeHint() const {
  return {editor_.GutterWidth(), 0};
}

void LineNumbers::paintEvent(QPaintEvent* event) {
  editor_.PaintGutter(*event);
}

}  // namespace quorvane::desktop

#include "desktop/shell/CursorStatus.h"

#include <QLabel>
#include <QStatusBar>
#include <QTextBlock>

#include "desktop/editor/CodeEdit.h"

namespace quorvane::desktop {

CursorStatus::CursorStatus(QStatusBar& bar, const Texts& texts)
    : texts_(texts), selected_(new QLabel), place_(new QLabel) {
  bar.addPermanentWidget(selected_);
  bar.addPermanentWidget(place_);
}

void CursorStatus::Show(const CodeEdit* editor) {
  const QTextCursor cursor = editor != nullptr ? editor->textCursor() : QTextCursor();
  place_->setText(editor == nullptr
                      ? QString()
                      : texts_(Text::StatusPlace).arg(cursor.blockNumber() + 1).arg(cursor.positionInBlock() + 1));
  const int length = cursor.selectionEnd() - cursor.selectionStart();
  selected_->setText(editor != nullptr && length > 0 ? texts_.Counted(Text::StatusSelected, length) : QString());
}

}  // namespace quorvane::desktop

#include "desktop/editor/PaneBinding.h"

#include <QTextBlock>
#include <algorithm>
#include <utility>

#include "base/Checked.h"
#include "base/FlagScope.h"
#include "desktop/editor/CodeEdit.h"
#include "desktop/platform/QtText.h"
#include "platform/ScreenColumns.h"
#include "workbench/model/Module.h"
#include "workbench/model/Pane.h"

namespace quorvane::desktop {

PaneBinding::PaneBinding(std::shared_ptr<workbench::Pane> pane, CodeEdit& editor, const CodePage& page)
    : pane_(std::move(pane)), editor_(editor), page_(page) {
  ToEditor();
  paneChanged_ = pane_->SelectionChanged.Subscribe([this] { ToEditor(); });
  connect(&editor_, &QPlainTextEdit::cursorPositionChanged, this, [this] { ToPane(); });
  connect(&editor_, &QPlainTextEdit::selectionChanged, this, [this] { ToPane(); });
}

int PaneBinding::PositionOf(int line, int column) const {
  const QTextBlock block = editor_.document()->findBlockByNumber(line - 1);
  if (!block.isValid()) return editor_.document()->characterCount() - 1;
  // The module's own text counts: a sign that stands for another character may be of another width.
  const std::u16string text = editor_.TheModule()->Lines(line, 1);
  return block.position() + static_cast<int>(UnitOfColumn(page_, text, column, InsideWide::Character));
}

void PaneBinding::ToEditor() {
  if (busy_) return;
  const FlagScope busy(busy_);
  editor_.Refresh();
  const vbide::Selection selection = pane_->GetSelection();
  editor_.Locate(PositionOf(selection.StartLine, selection.StartColumn),
                 PositionOf(selection.EndLine, selection.EndColumn));
}

void PaneBinding::ToPane() {
  if (busy_) return;
  const FlagScope busy(busy_);
  const auto place = [this](int position, std::int32_t& line, std::int32_t& column) {
    const QTextBlock block = editor_.document()->findBlock(position);
    line = block.blockNumber() + 1;
    column = Checked32(ColumnOfUnit(page_, editor_.TheModule()->Lines(line, 1),
                                    static_cast<std::size_t>(position - block.position())));
  };
  const QTextCursor cursor = editor_.textCursor();
  vbide::Selection selection;
  place(cursor.selectionStart(), selection.StartLine, selection.StartColumn);
  place(cursor.selectionEnd(), selection.EndLine, selection.EndColumn);
  pane_->SetSelection(selection);
}

}  // namespace quorvane::desktop

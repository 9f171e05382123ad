#include "desktop/editor/CodeEdit.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>
#include <utility>

#include "base/FlagScope.h"
#include "desktop/editor/CodeMarks.h"
#include "desktop/editor/LineNumbers.h"
#include "desktop/editor/MarkRuler.h"
#include "desktop/editor/VbHighlighter.h"
#include "workbench/model/Module.h"
#include "workbench/text/TurnClock.h"

namespace quorvane::desktop {

namespace {

constexpr int kIndent = 4;  // columns
constexpr int kGutterMargin = 8;
constexpr int kBookmarkWidth = 5;
constexpr int kSmallestFont = 6;
constexpr int kLargestFont = 48;

/// Whether a place in a widget is in its rectangle, and no dialog of the program lies over it.
bool IsClear(const QWidget& widget, const QRect& place) {
  if (!widget.rect().contains(place.center())) return false;
  const QRect onScreen(widget.mapToGlobal(place.topLeft()), place.size());
  return std::ranges::none_of(QApplication::topLevelWidgets(), [&](const QWidget* window) {
    return window->isVisible() && !window->isMinimized() && window->windowType() == Qt::Dialog &&
           window != widget.window() && window->frameGeometry().intersects(onScreen);
  });
}

qsizetype LeadingBlanks(const QString& line) {
  const auto first =
      std::ranges::find_if(line, [](QChar c) { return c != QLatin1Char(' ') && c != QLatin1Char('\t'); });
  return first - line.begin();
}

}  // namespace

CodeEdit::CodeEdit(std::shared_ptr<workbench::Module> module, workbench::TurnClock& turns, QWidget* parent)
    : QPlainTextEdit(parent),
      turns_(turns),
      colors_(CodeColors::Of(palette())),
      binding_(std::make_unique<ModuleBinding>(std::move(module), *document())),
      highlighter_(new VbHighlighter(document(), colors_)),
      numbers_(new LineNumbers(*this)),
      ruler_(new MarkRuler(*this)),
      marks_(std::make_unique<CodeMarks>(*this)) {
  setFrameShape(QFrame::NoFrame);
  setLineWrapMode(NoWrap);
  setCursorWidth(2);
  connect(this, &QPlainTextEdit::blockCountChanged, this, [this] { PlaceGutter(); });
  connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& rect, int dy) {
    if (dy != 0) return numbers_->scroll(0, dy);
    numbers_->update(0, rect.y(), numbers_->width(), rect.height());
  });
  connect(this, &QPlainTextEdit::cursorPositionChanged, this, [this] {
    NoteCaret();
    HighlightLine();
  });
  connect(this, &QPlainTextEdit::selectionChanged, this, [this] { NoteCaret(); });
  NoteCaret();
  ApplyColors();
  PlaceGutter();
}

CodeEdit::~CodeEdit() = default;

/// Whatever the user does is done to the text as it is now.
bool CodeEdit::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::FocusIn:
      Refresh();
      break;
    default:
      break;
  }
  if (event->type() == QEvent::ShortcutOverride) {
    // The module's history answers these, by the menu of the window.
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) return false;
  }
  return QPlainTextEdit::event(event);
}

bool CodeEdit::Continues(const QKeyEvent& event) const {
  const bool plain = (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
  const QString text = event.text();
  if (!plain || text.size() != 1 || !text[0].isPrint() || textCursor().hasSelection()) return false;
  const bool wordBegins = typed_.blank && !text[0].isSpace();
  return typed_.revision == TheModule()->Revision() && typed_.position == textCursor().position() && !wordBegins;
}

void CodeEdit::keyPressEvent(QKeyEvent* event) {
  if (!Continues(*event)) turns_.Next();
  typed_.revision = 0;
  const std::uint64_t before = TheModule()->Revision();
  if (TakeKey(*event)) return event->accept();
  QPlainTextEdit::keyPressEvent(event);
  NoteCaret();
  const bool character = event->text().size() == 1 && event->text()[0].isPrint();
  if (character && TheModule()->Revision() != before) {
    typed_ = {TheModule()->Revision(), textCursor().position(), event->text()[0].isSpace()};
  }
}

bool CodeEdit::TakeKey(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Undo)) {
    Undo();
  } else if (event.matches(QKeySequence::Redo)) {
    Redo();
  } else if (event.key() == Qt::Key_Tab && event.modifiers() == Qt::NoModifier) {
    Indent();
  } else if (event.key() == Qt::Key_Backtab) {
    Outdent();
  } else if ((event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
             (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
    BreakLine();
  } else {
    return false;
  }
  return true;
}

/// A new line begins where the one before it does.
void CodeEdit::BreakLine() {
  QTextCursor cursor = textCursor();
  const QString line = document()->findBlock(cursor.selectionStart()).text();
  const qsizetype column = cursor.selectionStart() - document()->findBlock(cursor.selectionStart()).position();
  cursor.insertText(QLatin1Char('\n') + line.left(std::min(LeadingBlanks(line), column)));
  setTextCursor(cursor);
}

void CodeEdit::Indent() {
  QTextCursor cursor = textCursor();
  if (document()->findBlock(cursor.selectionStart()) != document()->findBlock(cursor.selectionEnd())) {
    return ShiftLines(true);
  }
  const int column = cursor.selectionStart() - document()->findBlock(cursor.selectionStart()).position();
  cursor.insertText(QString(kIndent - column % kIndent, QLatin1Char(' ')));
  setTextCursor(cursor);
}

void CodeEdit::Outdent() {
  ShiftLines(false);
}

void CodeEdit::ShiftLines(bool right) {
  QTextCursor cursor = textCursor();
  const QTextBlock first = document()->findBlock(cursor.selectionStart());
  QTextBlock last = document()->findBlock(cursor.selectionEnd());
  if (last != first && cursor.selectionEnd() == last.position()) last = last.previous();
  QTextCursor edit(document());
  edit.beginEditBlock();
  for (QTextBlock block = first; block.isValid(); block = block.next()) {
    edit.setPosition(block.position());
    if (right) {
      if (!block.text().isEmpty()) edit.insertText(QString(kIndent, QLatin1Char(' ')));
    } else {
      const auto blanks = std::min<qsizetype>(LeadingBlanks(block.text()), kIndent);
      edit.movePosition(QTextCursor::Right, QTextCursor::KeepAnchor, static_cast<int>(blanks));
      edit.removeSelectedText();
    }
    if (block == last) break;
  }
  edit.endEditBlock();
}

void CodeEdit::NoteCaret() {
  carets_.Note(TheModule()->State(), {textCursor().anchor(), textCursor().position()});
}

void CodeEdit::Undo() {
  turns_.Next();
  if (TheModule()->Undo()) AfterHistory(carets_.Last(TheModule()->State()));
}

void CodeEdit::Redo() {
  turns_.Next();
  if (TheModule()->Redo()) AfterHistory(carets_.First(TheModule()->State()));
}

/// What was done without a caret here leaves it after the change.
void CodeEdit::AfterHistory(const std::optional<CaretHistory::Caret>& caret) {
  Refresh();
  if (caret) {
    Locate(caret->anchor, caret->position);
  } else {
    Locate(binding_->LastChange(), binding_->LastChange());
  }
}

void CodeEdit::GoToLine(int line) {
  Refresh();
  const int number = std::clamp(line, 1, blockCount()) - 1;
  const int position = document()->findBlockByNumber(number).position();
  Locate(position, position);
}

void CodeEdit::Select(int anchor, int position) {
  const int end = document()->characterCount() - 1;
  QTextCursor cursor(document());
  cursor.setPosition(std::clamp(anchor, 0, end));
  cursor.setPosition(std::clamp(position, 0, end), QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

void CodeEdit::Reveal() {
  Place(Shows(textCursor().anchor()) && Shows(textCursor().position()));
}

void CodeEdit::Locate(int anchor, int position) {
  const bool shown = Shows(anchor) && Shows(position);  // the toolkit scrolls by itself, just as far as it must
  {
    const FlagScope jumping(jumping_);
    Select(anchor, position);
  }
  Place(shown);
}

bool CodeEdit::Shows(int position) const {
  if (!placed_) return false;
  QTextCursor cursor(document());
  cursor.setPosition(std::clamp(position, 0, document()->characterCount() - 1));
  return viewport()->rect().intersects(cursorRect(cursor));
}

void CodeEdit::Place(bool shown) {
  QTextCursor begin = textCursor();
  begin.setPosition(begin.selectionStart());
  placed_ = isVisible();
  const int rows = std::max(1, viewport()->height() / std::max(1, cursorRect(begin).height()));
  if (!shown) verticalScrollBar()->setValue(std::max(0, begin.blockNumber() - rows / 3));
  ensureCursorVisible();
  if (placed_) LeaveCover(begin, rows);
}

/// Where a dialog lies over the selection's first line, that goes to the line of the view nearest to a third that none
/// lies over; it stays where it is when there is no such line.
void CodeEdit::LeaveCover(const QTextCursor& begin, int rows) {
  const auto place = [&] {
    const QRect first = cursorRect(begin);
    const bool oneLine = begin.blockNumber() == textCursor().blockNumber();
    return oneLine ? first.united(cursorRect()) : first;
  };
  if (IsClear(*viewport(), place())) return;
  QScrollBar& bar = *verticalScrollBar();
  const int before = bar.value();
  for (int distance = 0; distance < rows; ++distance) {
    for (const int row : {rows / 3 - distance, rows / 3 + distance}) {
      const int value = begin.blockNumber() - row;
      if (row < 0 || row >= rows || value < 0 || value > bar.maximum()) continue;
      bar.setValue(value);
      if (IsClear(*viewport(), place())) return;
    }
  }
  bar.setValue(before);
}

void CodeEdit::showEvent(QShowEvent* event) {
  QPlainTextEdit::showEvent(event);
  if (placed_) return;
  QMetaObject::invokeMethod(  // the window gets its size after this
      this,
      [this] {
        if (!placed_) Reveal();
      },
      Qt::QueuedConnection);
}

int CodeEdit::GutterWidth() const {
  int digits = 3;
  for (int count = std::max(1, blockCount()); count >= 1000; count /= 10) ++digits;
  return 2 * kGutterMargin + fontMetrics().horizontalAdvance(QLatin1Char('9')) * digits;
}

void CodeEdit::PaintGutter(QPaintEvent& event) {
  QPainter painter(numbers_);
  painter.setFont(font());
  painter.fillRect(event.rect(), colors_.gutter);
  const int current = textCursor().blockNumber();
  QTextBlock block = firstVisibleBlock();
  for (; block.isValid(); block = block.next()) {
    const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
    if (place.top() > event.rect().bottom()) break;
    if (place.bottom() < event.rect().top()) continue;
    if (std::ranges::binary_search(bookmarks_, block.blockNumber() + 1)) PaintBookmark(painter, place.top());
    painter.setPen(block.blockNumber() == current ? palette().color(QPalette::Text) : colors_.lineNumber);
    painter.drawText(QRectF(0, place.top(), numbers_->width() - kGutterMargin, fontMetrics().height()),
                     Qt::AlignRight | Qt::AlignVCenter, QString::number(block.blockNumber() + 1));
  }
}

/// A tag at the edge of the margin, beside the number.
void CodeEdit::PaintBookmark(QPainter& painter, double top) const {
  const double height = fontMetrics().height();
  painter.fillRect(QRectF(0, top + 1, kBookmarkWidth, height - 2), palette().color(QPalette::Highlight));
}

void CodeEdit::ShowBookmarks(std::vector<std::int32_t> lines) {
  if (lines == bookmarks_) return;
  bookmarks_ = std::move(lines);
  numbers_->update();
}

void CodeEdit::HighlightLine() {
  QTextEdit::ExtraSelection line;
  line.format.setBackground(colors_.currentLine);
  line.format.setProperty(QTextFormat::FullWidthSelection, true);
  line.cursor = textCursor();
  line.cursor.clearSelection();
  QList<QTextEdit::ExtraSelection> shown{line};
  for (const QTextCursor& range : marked_) {
    QTextEdit::ExtraSelection mark;
    mark.format.setBackground(colors_.mark);
    mark.cursor = range;
    shown << mark;
  }
  setExtraSelections(shown);
  numbers_->update();
}

void CodeEdit::ShowMarks(std::vector<QTextCursor> ranges) {
  marked_ = std::move(ranges);
  HighlightLine();
  if (ruler_->isHidden() != marks_->Empty()) {
    ruler_->setVisible(!marks_->Empty());
    PlaceGutter();
  }
  ruler_->update();
}

void CodeEdit::PlaceGutter() {
  setViewportMargins(GutterWidth(), 0, ruler_->isHidden() ? 0 : MarkRuler::kWidth, 0);
  const QRect text = viewport()->geometry();
  ruler_->setGeometry(text.right() + 1, text.top(), MarkRuler::kWidth, text.height());
  const QRect area = contentsRect();
  numbers_->setGeometry(area.left(), area.top(), GutterWidth(), area.height());
}

void CodeEdit::resizeEvent(QResizeEvent* event) {
  QPlainTextEdit::resizeEvent(event);
  PlaceGutter();
}

void CodeEdit::changeEvent(QEvent* event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ApplyColors();
  if (event->type() == QEvent::FontChange) {
    setTabStopDistance(fontMetrics().horizontalAdvance(QLatin1Char(' ')) * kIndent);
    PlaceGutter();
  }
}

void CodeEdit::ApplyColors() {
  colors_ = CodeColors::Of(palette());
  highlighter_->SetColors(colors_);
  HighlightLine();
}

void CodeEdit::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) return QPlainTextEdit::wheelEvent(event);
  const int step = event->angleDelta().y() > 0 ? 1 : event->angleDelta().y() < 0 ? -1 : 0;
  const int size = std::clamp(font().pointSize() + step, kSmallestFont, kLargestFont);
  if (size != font().pointSize()) Zoomed.Raise(size);
  event->accept();
}

void CodeEdit::contextMenuEvent(QContextMenuEvent* event) {
  MenuWanted.Raise(event->globalPos());
}

// Files that are dropped on the code are for the window to open.

void CodeEdit::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) return event->ignore();
  QPlainTextEdit::dragEnterEvent(event);
}

void CodeEdit::dragMoveEvent(QDragMoveEvent* event) {
  if (event->mimeData()->hasUrls()) return event->ignore();
  QPlainTextEdit::dragMoveEvent(event);
}

void CodeEdit::dropEvent(QDropEvent* event) {
  if (event->mimeData()->hasUrls()) return event->ignore();
  Refresh();
  turns_.Next();
  QPlainTextEdit::dropEvent(event);
}

void CodeEdit::insertFromMimeData(const QMimeData* source) {
  if (!source->hasText()) return;
  turns_.Next();
  QString text = source->text();
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  for (QChar& c : text) {
    if (c == QLatin1Char('\r') || c == QChar(u'\u2028') || c == QChar(u'\u2029')) c = QLatin1Char('\n');
  }
  textCursor().insertText(text);
  ensureCursorVisible();
}

}  // namespace quorvane::desktop

// Rows are all of one height and known by their number, so that only those on the screen cost anything: a paint asks
// the owner for them alone, and a list that grows thousands of times a second is looked at once for each turn of the
// event loop.

#include "desktop/results/ResultListView.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "desktop/controls/ScreenAt.h"
#include "desktop/platform/QtCanvas.h"
#include "desktop/platform/QtKeys.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/QtWindows.h"
#include "desktop/platform/Texts.h"
#include "desktop/results/EmptyListNote.h"
#include "desktop/results/ResultListAccess.h"
#include "platform/NativeWindows.h"
#include "platform/forms/MouseButton.h"
#include "platform/forms/OwnerDrawList.h"

namespace quorvane::desktop {

namespace {

constexpr int kMiss = 0x10000;  // a high word other than 0
constexpr int kLeft = 5;        // of the text of a row
constexpr int kPadding = 2;     // above and below the text of a row

QFont FontOf(const forms::Font& font, const QFont& own) {
  QFont made(own);
  if (!font.Name.empty()) made.setFamily(ToQString(font.Name));
  made.setPointSizeF(font.Size);
  return made;
}

std::int16_t Shift(const QInputEvent& event) {
  return static_cast<std::int16_t>(ShiftStateOf(event.modifiers()));
}

}  // namespace

ResultListView::ResultListView(std::shared_ptr<forms::OwnerDrawList> list, QtWindows& windows, QWidget* parent)
    : QAbstractScrollArea(parent), kept_(std::move(list)), list_(*kept_), follow_([this] { Follow(); }) {
  ResultListAccess::Install();
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::NoFrame);
  viewport()->setMouseTracking(true);
  viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
  viewport()->setCursor(Qt::ArrowCursor);
  setAccessibleName(Texts::OfAddIn()(Text::ResultList));
  FollowDesktop();
  setFont(FontOf(list_.Font(), font()));
  list_.SetHwnd(windows.HandleOf(*viewport()));
  windows.Answer(*viewport(),
                 [this](std::uint32_t message, std::int32_t, std::int32_t lParam) { return Answer(message, lParam); });
  rowsChanged_ = list_.RowsChanged.Subscribe([this] { follow_.Ask(); });
  changed_ = list_.Changed.Subscribe([this] { follow_.Ask(); });
  repaintWanted_ = list_.RepaintWanted.Subscribe([this] { viewport()->update(); });
  follow_.Ask();
}

ResultListView::~ResultListView() = default;

/// A list that asks for no font has that of the desktop, in its size.
void ResultListView::FollowDesktop() {
  forms::Font wanted = list_.Font();
  const double size = QApplication::font(this).pointSizeF();
  if (!wanted.Name.empty() || size <= 0) return;
  wanted.Size = size;
  list_.SetFont(wanted);
}

int ResultListView::RowHeight() const {
  return QFontMetrics(font()).height() + 2 * kPadding;
}

int ResultListView::RowsOnScreen() const {
  return std::max(1, viewport()->height() / RowHeight());
}

int ResultListView::RowAt(int x, int y) const {
  if (!viewport()->rect().contains(x, y)) return -1;
  const int row = verticalScrollBar()->value() + y / RowHeight();
  return row < list_.ListCount() ? row : -1;
}

QRect ResultListView::RectOf(int row) const {
  const int top = (row - verticalScrollBar()->value()) * RowHeight();
  const QRect rect(0, top, viewport()->width(), RowHeight());
  return row >= 0 && row < list_.ListCount() && rect.intersects(viewport()->rect()) ? rect : QRect();
}

void ResultListView::Follow() {
  UpdateScrollBars();
  if (list_.ListIndex() != shownIndex_) {
    shownIndex_ = list_.ListIndex();
    if (shownIndex_ >= 0) Reveal(shownIndex_);
    ResultListAccess::TellSelected(*this);
    setAccessibleDescription(shownIndex_ >= 0 ? ToQString(list_.List(shownIndex_)) : QString());
  }
  viewport()->update();
}

void ResultListView::UpdateScrollBars() {
  const int page = RowsOnScreen();
  verticalScrollBar()->setPageStep(page);
  verticalScrollBar()->setRange(0, std::max(0, list_.ListCount() - page));
  horizontalScrollBar()->setPageStep(viewport()->width());
  horizontalScrollBar()->setSingleStep(fontMetrics().averageCharWidth() * 4);
  horizontalScrollBar()->setRange(0, std::max(0, list_.HorizontalExtent() - viewport()->width()));
}

void ResultListView::Reveal(int row) {
  UpdateScrollBars();
  QScrollBar& bar = *verticalScrollBar();
  if (row < bar.value()) bar.setValue(row);
  if (row >= bar.value() + RowsOnScreen()) bar.setValue(row - RowsOnScreen() + 1);
}

void ResultListView::scrollContentsBy(int, int) {
  viewport()->update();
}

void ResultListView::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  painter.setFont(font());
  painter.fillRect(viewport()->rect(), palette().color(QPalette::Base));
  if (const QString note = EmptyListNote(list_); !note.isEmpty()) {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter, note);
  }
  const int height = RowHeight();
  const int left = -horizontalScrollBar()->value();
  const int width = std::max(viewport()->width() - left, list_.HorizontalExtent());
  const int first = verticalScrollBar()->value();
  const int last = std::min(list_.ListCount() - 1, first + viewport()->height() / height);
  // The owner counts the widest row from what it is given: each row starts at 0 there, however far it is scrolled.
  painter.translate(left, 0);
  QtCanvas canvas(painter, palette());
  for (int row = first; row <= last; ++row) {
    const int top = (row - first) * height;
    const bool selected = row == list_.ListIndex();
    // The owner draws its text at the top of what it is given; the room above and below is the view's.
    if (selected) painter.fillRect(0, top, width, height, palette().color(QPalette::Highlight));
    list_.DrawItem.Raise(row, canvas, selected, {0, top + kPadding, width, top + height - kPadding});
    // Its owner leaves a row whose match lies too far along it blank: no row of the list is without its text.
    if (!canvas.TakeDrawn()) {
      painter.setPen(palette().color(selected ? QPalette::HighlightedText : QPalette::Text));
      painter.drawText(kLeft, top + kPadding + painter.fontMetrics().ascent(), ToQString(list_.List(row)));
    }
  }
}

void ResultListView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  const int row = list_.ListIndex();
  const int first = verticalScrollBar()->value();
  const bool seen = row >= first && row < first + std::max(1, event->oldSize().height() / RowHeight());
  UpdateScrollBars();
  if (seen) Reveal(row);  // the bar below comes with the first long row, and takes the place of the last one
}

void ResultListView::mousePressEvent(QMouseEvent* event) {
  const std::int16_t button = MouseButtonOf(event->button());
  if (button == 0) return;
  const QPointF place = event->position();
  const int row = RowAt(static_cast<int>(place.x()), static_cast<int>(place.y()));
  if (row >= 0 && button != forms::kMiddleButton) list_.SetListIndex(row);
  list_.MouseDown.Raise(button, Shift(*event), static_cast<float>(place.x()), static_cast<float>(place.y()));
}

void ResultListView::mouseMoveEvent(QMouseEvent* event) {
  const QPointF place = event->position();
  if ((event->buttons() & Qt::LeftButton) != 0) {
    const int row = RowAt(static_cast<int>(place.x()), static_cast<int>(place.y()));
    if (row >= 0) list_.SetListIndex(row);
  }
  TellForms(ScreenAt(event->globalPosition().toPoint(), *this), *this);  // the preview beside the pointer ends there
  list_.MouseMove.Raise(MouseButtonOf(Qt::MouseButton(int(event->buttons()))), Shift(*event),
                        static_cast<float>(place.x()), static_cast<float>(place.y()));
}

void ResultListView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) list_.DblClick.Raise();
}

int ResultListView::RowByKey(int key) const {
  const int page = RowsOnScreen();
  const int now = list_.ListIndex();
  switch (key) {
    case Qt::Key_Up:
      return std::max(now - 1, 0);
    case Qt::Key_Down:
      return now + 1;
    case Qt::Key_PageUp:
      return std::max(now - page, 0);
    case Qt::Key_PageDown:
      return std::max(now, 0) + page;
    case Qt::Key_Home:
      return 0;
    case Qt::Key_End:
      return list_.ListCount();
    default:
      return -1;
  }
}

void ResultListView::CopySelected() const {
  if (list_.ListIndex() < 0) return;
  QGuiApplication::clipboard()->setText(ToQString(list_.List(list_.ListIndex())));
}

void ResultListView::keyPressEvent(QKeyEvent* event) {
  const std::int32_t code = VirtualKeyOf(*event);
  if (event->matches(QKeySequence::Copy)) return CopySelected();
  if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
    const bool left = event->key() == Qt::Key_Left;
    horizontalScrollBar()->triggerAction(left ? QScrollBar::SliderSingleStepSub : QScrollBar::SliderSingleStepAdd);
  } else if (const int row = RowByKey(event->key()); row >= 0 && list_.ListCount() > 0) {
    list_.SetListIndex(std::min(row, list_.ListCount() - 1));
    follow_.Now();
  }
  if (code != 0) list_.KeyDown.Raise(static_cast<std::int16_t>(code), Shift(*event));
}

void ResultListView::focusInEvent(QFocusEvent* event) {
  list_.SetHasFocus(true);
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void ResultListView::focusOutEvent(QFocusEvent* event) {
  list_.SetHasFocus(false);
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

void ResultListView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) follow_.Ask();
  if (event->type() == QEvent::LanguageChange) setAccessibleName(Texts::OfAddIn()(Text::ResultList));
}

int ResultListView::Answer(std::uint32_t message, std::int32_t lParam) const {
  if (message != kItemFromPoint) return 0;
  const auto x = static_cast<std::int16_t>(lParam & 0xFFFF);
  const auto y = static_cast<std::int16_t>((lParam - x) / 0x10000);
  const int row = RowAt(x, y);
  return row >= 0 ? row : std::max(kMiss, list_.ListCount());
}

}  // namespace quorvane::desktop

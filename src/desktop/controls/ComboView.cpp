#include "desktop/controls/ComboView.h"

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QWheelEvent>

#include "base/Error.h"
#include "base/FlagScope.h"
#include "desktop/controls/ControlFollow.h"
#include "desktop/platform/QtText.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/DataObject.h"

namespace quorvane::desktop {

namespace {

/// File managers offer the addresses of what is dragged as a text too, which nobody means to search for.
bool IsText(const QMimeData& data) {
  return data.hasText() && !data.hasUrls();
}

/// What the toolkit brings with a drag.
class Dragged final : public forms::DataObject {
 public:
  explicit Dragged(const QMimeData& data) : data_(data) {}

  bool GetFormat(std::int16_t format) const override { return format == forms::kPlainText && IsText(data_); }
  std::u16string GetData(std::int16_t format) const override {
    if (!GetFormat(format)) RaiseError(ErrorNumber::InvalidProcedureCall, u"The dropped data has no such format");
    return FromQString(data_.text());
  }

 private:
  const QMimeData& data_;
};

/// A line shows no break, and a search takes none.
QString OneLine(QString text) {
  return text.remove(QLatin1Char('\r')).remove(QLatin1Char('\n'));
}

}  // namespace

ComboView::ComboView(forms::ComboBox& combo, Kind kind, QWidget* parent) : QComboBox(parent), combo_(combo) {
  setInsertPolicy(QComboBox::NoInsert);
  setMaxVisibleItems(16);
  setFocusPolicy(Qt::StrongFocus);  // the wheel alone chooses no control
  if (kind == Kind::Editable) {
    setEditable(true);
    setCompleter(nullptr);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(32);
    lineEdit()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] { Edited(); });
  }
  connect(this, &QComboBox::activated, this, [this](int index) {
    combo_.Pick(index);
    Follow();
  });
  changed_ = combo_.Changed.Subscribe([this] { Follow(); });
  Follow();
}

void ComboView::Follow() {
  if (busy_) return;
  const FlagScope busy(busy_);
  FollowList();
  if (isEditable()) {
    FollowText();
  } else {
    setCurrentIndex(combo_.ListIndex());
  }
  FollowControl(*this, combo_);
}

void ComboView::FollowList() {
  bool same = count() == combo_.ListCount();
  for (int i = 0; same && i < count(); ++i) same = itemText(i) == ToQString(combo_.List(i));
  if (same) return;
  clear();
  for (int i = 0; i < combo_.ListCount(); ++i) addItem(ToQString(combo_.List(i)));
  setCurrentIndex(combo_.ListIndex());  // the toolkit picks the first by itself, and Down would begin after that
}

void ComboView::FollowText() {
  const QString text = OneLine(ToQString(combo_.Text()));
  const bool other = lineEdit()->text() != text;
  if (other) lineEdit()->setText(text);
  if (!other && selStart_ == combo_.SelStart() && selLength_ == combo_.SelLength()) return;
  selStart_ = combo_.SelStart();
  selLength_ = combo_.SelLength();
  if (selLength_ > 0) {
    lineEdit()->setSelection(selStart_, selLength_);
  } else {
    lineEdit()->setCursorPosition(selStart_);
  }
}

void ComboView::Edited() {
  const QLineEdit& line = *lineEdit();
  {
    const FlagScope busy(busy_);
    combo_.Edit(FromQString(OneLine(line.text())), line.cursorPosition(), 0);
    selStart_ = combo_.SelStart();
    selLength_ = combo_.SelLength();
  }
  Follow();
}

/// Whoever turns the wheel over a control without the focus means to scroll.
void ComboView::wheelEvent(QWheelEvent* event) {
  hasFocus() ? QComboBox::wheelEvent(event) : event->ignore();
}

bool ComboView::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
      auto* drag = static_cast<QDropEvent*>(event);
      IsText(*drag->mimeData()) ? drag->acceptProposedAction() : drag->ignore();
      return true;
    }
    case QEvent::Drop: {
      auto* drop = static_cast<QDropEvent*>(event);
      if (!IsText(*drop->mimeData())) {
        drop->ignore();
        return true;
      }
      drop->setDropAction(Qt::CopyAction);
      drop->accept();
      combo_.Drop(Dragged(*drop->mimeData()));
      return true;
    }
    default:
      return QComboBox::eventFilter(watched, event);
  }
}

}  // namespace quorvane::desktop

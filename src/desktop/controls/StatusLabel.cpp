#include "desktop/controls/StatusLabel.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <utility>

#include "desktop/platform/QtKeys.h"
#include "desktop/platform/QtText.h"
#include "platform/forms/Label.h"

namespace quorvane::desktop {

namespace {

/// The list begins close below, over what hangs down from tall characters, while there is air above them.
constexpr int kLift = 2;

}  // namespace

StatusLabel::StatusLabel(std::shared_ptr<forms::Label> label, QWidget* parent)
    : QWidget(parent), label_(std::move(label)) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  changed_ = label_->Changed.Subscribe([this] { update(); });
}

QString StatusLabel::Text() const {
  const QString text = ToQString(label_->Caption());
  return text.isEmpty() ? note_ : text;
}

void StatusLabel::SetNote(const QString& note) {
  note_ = note;
  update();
}

int StatusLabel::HeightOf(const QWidget& widget) {
  return widget.fontMetrics().height() + 2;
}

QSize StatusLabel::sizeHint() const {
  return {0, HeightOf(*this)};
}

QSize StatusLabel::minimumSizeHint() const {
  return sizeHint();
}

void StatusLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (const QString text = Text(); text != accessibleName()) setAccessibleName(text);
  painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  const QString shown = fontMetrics().elidedText(Text(), Qt::ElideRight, width());
  painter.drawText(rect().adjusted(0, -kLift, 0, 0),
                   static_cast<int>(Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine), shown);
}

void StatusLabel::mousePressEvent(QMouseEvent* event) {
  const std::int16_t button = MouseButtonOf(event->button());
  if (button == 0) return QWidget::mousePressEvent(event);
  label_->MouseDown.Raise(button, static_cast<std::int16_t>(ShiftStateOf(event->modifiers())),
                          static_cast<float>(event->position().x()), static_cast<float>(event->position().y()));
}

bool StatusLabel::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const QString text = Text();
  const bool cut = fontMetrics().horizontalAdvance(text) > width();
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), cut ? text.toHtmlEscaped() : QString(), this);
  return true;
}

}  // namespace quorvane::desktop

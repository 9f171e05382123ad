#include "desktop/dialogs/AboutView.h"

#include <QFontDatabase>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

#include "addin/dialogs/frmAbout.h"
#include "desktop/controls/ButtonView.h"
#include "desktop/controls/FrameView.h"
#include "desktop/controls/LabelView.h"
#include "desktop/controls/LinkView.h"
#include "desktop/controls/MemoView.h"
#include "desktop/platform/Icons.h"

namespace quorvane::desktop {

namespace {

constexpr int kIconSize = 48;
constexpr int kTextColumns = 80;
constexpr int kReadMeLines = 14;
constexpr int kLicenceLines = 11;

/// Room for that many characters and lines, without the scroll bar.
QSize TextSize(const QPlainTextEdit& text, int lines) {
  const int border = 2 * (text.frameWidth() + static_cast<int>(text.document()->documentMargin()));
  const QFontMetrics font = text.fontMetrics();
  return {font.horizontalAdvance(QString(kTextColumns, QLatin1Char('x'))) + border,
          font.lineSpacing() * lines + border};
}

/// So many lines of a text, or fewer where the screen has no room for both texts and what stands around them.
int LinesThatFit(const QPlainTextEdit& text, int wanted) {
  constexpr int kAround = 16;  // lines
  constexpr int kFewest = 3;
  const int room = text.screen()->availableGeometry().height() / text.fontMetrics().lineSpacing() - kAround;
  return std::clamp(wanted * room / (kReadMeLines + kLicenceLines), std::min(kFewest, wanted), wanted);
}

}  // namespace

AboutView::AboutView(frmAbout& form, QWidget* parent) : DialogView(form, parent), form_(form) {
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(MakeHead());
  layout->addWidget(MakeText(form_.Frame说明, form_.txt说明, true));
  layout->addWidget(MakeText(form_.Frame许可, form_.txt许可, false));
  layout->addWidget(MakeRule());
  layout->addLayout(MakeFoot());
  setFocusProxy(WidgetOf(*form_.cmdOK));
}

QLayout* AboutView::MakeHead() {
  auto* head = new QGridLayout;
  auto* icon = Enter(form_.picIcon, new QLabel(this));
  icon->setPixmap(Icons::Program().pixmap(kIconSize, kIconSize));
  auto* title = Enter(form_.lblTitle, new LabelView(*form_.lblTitle, this));
  QFont large = title->font();
  large.setPointSizeF(large.pointSizeF() * 1.5);
  large.setBold(true);
  title->setFont(large);
  head->addWidget(icon, 0, 0, 2, 1);
  head->addWidget(title, 0, 1);
  head->addWidget(Enter(form_.lblVersion, new LabelView(*form_.lblVersion, this)), 1, 1);
  head->setColumnStretch(1, 1);
  head->setHorizontalSpacing(12);
  return head;
}

QWidget* AboutView::MakeText(const std::shared_ptr<forms::Frame>& frame, const std::shared_ptr<forms::TextBox>& text,
                             bool readMe) {
  auto* box = Enter(frame, new FrameView(*frame, this));
  auto* layout = new QVBoxLayout(box);
  auto* shown = Enter(text, new MemoView(*text, box));
  shown->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  shown->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  QPalette ground = shown->palette();
  ground.setColor(QPalette::Base, palette().color(QPalette::Window));
  shown->setPalette(ground);
  const QSize bar = shown->verticalScrollBar()->sizeHint();
  shown->setMinimumSize(TextSize(*shown, LinesThatFit(*shown, readMe ? kReadMeLines : kLicenceLines)) +
                        QSize(bar.width(), 0));
  layout->addWidget(shown);
  return box;
}

QWidget* AboutView::MakeRule() {
  auto* rule = new QFrame(this);
  rule->setFrameStyle(QFrame::HLine | QFrame::Sunken);
  Enter(form_.Line1[0], rule);
  return rule;
}

QLayout* AboutView::MakeFoot() {
  auto* foot = new QGridLayout;
  foot->addWidget(Enter(form_.lbl网址, new LabelView(*form_.lbl网址, this)), 0, 0);
  foot->addWidget(Enter(form_.lblProjectUrl, new LinkView(*form_.lblProjectUrl, this)), 0, 1, Qt::AlignLeft);
  foot->addWidget(Enter(form_.lbl邮箱, new LabelView(*form_.lbl邮箱, this)), 1, 0);
  foot->addWidget(Enter(form_.lblEmail, new LinkView(*form_.lblEmail, this)), 1, 1, Qt::AlignLeft);
  auto* ok = Enter(form_.cmdOK, new ButtonView(*form_.cmdOK, this));
  ok->setDefault(true);
  foot->addWidget(ok, 0, 2, 2, 1, Qt::AlignVCenter);
  foot->setColumnStretch(1, 1);
  return foot;
}

}  // namespace quorvane::desktop

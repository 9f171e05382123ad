#include "desktop/files/ThreeWayBox.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QVBoxLayout>

#include "base/Text.h"
#include "desktop/platform/QtText.h"
#include "desktop/review/ChangeColors.h"

namespace quorvane::desktop {

namespace {

constexpr QSize kFirstSize(1040, 560);
constexpr int kRowsAbove = 3;  // of the first difference

QString LineOf(const TextLines& lines, std::int32_t index) {
  return index < 0 ? QString() : ToQString(lines[static_cast<std::size_t>(index)]);
}

}  // namespace

ThreeWayBox::ThreeWayBox(const QString& title, const Forms& forms, const Texts& texts, QWidget* parent)
    : QDialog(parent) {
  setWindowTitle(title);
  auto* grid = new QGridLayout;
  int column = 0;
  for (const Text heading : {Text::ThreeOpened, Text::ThreeMine, Text::ThreeTheirs}) {
    auto* pane = new QPlainTextEdit;
    pane->setReadOnly(true);
    pane->setLineWrapMode(QPlainTextEdit::NoWrap);
    pane->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    pane->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    pane->setAccessibleName(texts(heading));
    auto* label = new QLabel(texts(heading));
    label->setBuddy(pane);
    grid->addWidget(label, 0, column);
    grid->addWidget(pane, 1, column);
    panes_[static_cast<std::size_t>(column++)] = pane;
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
  QPushButton* const cancel = buttons->button(QDialogButtonBox::Cancel);
  cancel->setText(texts(Text::NotNowAnswer));
  cancel->setIcon(QIcon());
  const auto add = [&](Text words, Answer answer) {
    QPushButton* button = buttons->addButton(texts(words), QDialogButtonBox::AcceptRole);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, answer] {
      answer_ = answer;
      accept();
    });
  };
  add(Text::ReloadAnswer, Answer::Reload);
  add(Text::KeepAnswer, Answer::Keep);
  cancel->setDefault(true);  // Enter by mistake gives nothing up
  panes_[1]->setFocus();
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(grid, 1);
  layout->addWidget(buttons);
  resize(kFirstSize);
  Fill(forms);
  ScrollTogether();
}

void ThreeWayBox::Fill(const Forms& forms) {
  const TextLines opened = Split(forms.opened, kCrLf), mine = Split(forms.mine, kCrLf),
                  theirs = Split(forms.theirs, kCrLf);
  const std::vector<ThreeWayRow> rows = AlignThree(opened, mine, theirs);
  std::array<QStringList, 3> shown;
  for (const ThreeWayRow& row : rows) {
    shown[0] << LineOf(opened, row.opened);
    shown[1] << LineOf(mine, row.mine);
    shown[2] << LineOf(theirs, row.theirs);
  }
  const ChangeColors colors = ChangeColors::Of(palette());
  int first = -1;
  for (std::size_t side = 0; side < panes_.size(); ++side) {
    QPlainTextEdit& pane = *panes_[side];
    pane.setPlainText(shown[side].join(QLatin1Char('\n')));
    QList<QTextEdit::ExtraSelection> marks;
    int number = 0;
    for (const ThreeWayRow& row : rows) {
      const bool differs = side == 0   ? row.mineDiffers || row.theirsDiffers
                           : side == 1 ? row.mineDiffers
                                       : row.theirsDiffers;
      if (differs) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(pane.document()->findBlockByNumber(number));
        mark.format.setBackground(side == 0 ? colors.removed : colors.added);
        mark.format.setProperty(QTextFormat::FullWidthSelection, true);
        marks << mark;
        if (first < 0) first = number;
      }
      ++number;
    }
    pane.setExtraSelections(marks);
  }
  if (first > 0) panes_[0]->verticalScrollBar()->setValue(first - kRowsAbove);
}

void ThreeWayBox::ScrollTogether() {
  for (QPlainTextEdit* pane : panes_) {
    for (QPlainTextEdit* other : panes_) {
      if (other == pane) continue;
      other->verticalScrollBar()->setValue(panes_[0]->verticalScrollBar()->value());
      connect(pane->verticalScrollBar(), &QScrollBar::valueChanged, other->verticalScrollBar(), &QScrollBar::setValue);
      connect(pane->horizontalScrollBar(), &QScrollBar::valueChanged, other->horizontalScrollBar(),
              &QScrollBar::setValue);
    }
  }
}

ThreeWayBox::Answer ThreeWayBox::Ask() {
  exec();
  return answer_;
}

}  // namespace quorvane::desktop

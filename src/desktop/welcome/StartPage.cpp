#include "desktop/welcome/StartPage.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/platform/Icons.h"
#include "desktop/platform/Texts.h"

namespace quorvane::desktop {

namespace {

constexpr int kWidth = 540;
constexpr qsizetype kMostRecent = 6;
constexpr int kIconSize = 48;

QLabel* NewLabel(double scale, QPalette::ColorRole role = QPalette::WindowText) {
  auto* label = new QLabel;
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  label->setFont(font);
  label->setForegroundRole(role);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

StartPage::StartPage(const Texts& texts, QWidget& area)
    : QWidget(&area),
      texts_(texts),
      area_(area),
      title_(NewLabel(1.6)),
      hint_(NewLabel(1, QPalette::PlaceholderText)),
      recentTitle_(NewLabel(1.1)),
      entries_(new QVBoxLayout),
      open_(new QPushButton),
      sample_(new QPushButton) {
  setObjectName(QStringLiteral("StartPage"));
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  Build();
  connect(open_, &QPushButton::clicked, this, [this] { OpenWanted.Raise(); });
  connect(sample_, &QPushButton::clicked, this, [this] { SampleWanted.Raise(); });
  area_.installEventFilter(this);
}

void StartPage::Build() {
  auto* icon = new QLabel;
  icon->setPixmap(Icons::Program().pixmap(kIconSize, kIconSize));
  auto* head = new QHBoxLayout;
  head->setSpacing(16);
  head->addWidget(icon);
  auto* words = new QVBoxLayout;
  words->addWidget(title_);
  words->addWidget(hint_);
  head->addLayout(words, 1);

  open_->setDefault(true);
  open_->setAutoDefault(true);
  sample_->setAutoDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addWidget(open_);
  buttons->addWidget(sample_);
  buttons->addStretch(1);

  entries_->setSpacing(2);
  auto* column = new QWidget;
  column->setMaximumWidth(kWidth);
  auto* lines = new QVBoxLayout(column);
  lines->setSpacing(18);
  lines->addLayout(head);
  lines->addLayout(buttons);
  lines->addWidget(recentTitle_);
  lines->addLayout(entries_);
  auto* middle = new QHBoxLayout;
  middle->addStretch(1);
  middle->addWidget(column, 10);
  middle->addStretch(1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 24, 24, 24);
  layout->addStretch(2);
  layout->addLayout(middle);
  layout->addStretch(3);
}

/// The name of the first file, the number of the others, and where it lies.
QPushButton* StartPage::NewEntry(const QStringList& files) {
  const QFileInfo first(files.constFirst());
  QString name = first.fileName();
  if (files.size() > 1) name += QStringLiteral(" +%1").arg(files.size() - 1);
  auto* entry = new QPushButton;
  entry->setFlat(true);
  entry->setAutoDefault(true);
  entry->setCursor(Qt::PointingHandCursor);
  entry->setToolTip(QDir::toNativeSeparators(files.join(QLatin1Char('\n'))));
  entry->setAccessibleName(name);
  auto* row = new QHBoxLayout(entry);
  row->setContentsMargins(8, 4, 8, 4);
  row->setSpacing(12);
  auto* label = NewLabel(1, QPalette::Link);
  label->setText(name);
  label->setWordWrap(false);
  auto* folder = NewLabel(1, QPalette::PlaceholderText);
  const QString place = QDir::toNativeSeparators(first.absolutePath());
  folder->setText(folder->fontMetrics().elidedText(place, Qt::ElideMiddle, kWidth * 3 / 5));
  folder->setWordWrap(false);
  row->addWidget(label);
  row->addStretch(1);
  row->addWidget(folder);
  for (QLabel* part : {label, folder}) part->setAttribute(Qt::WA_TransparentForMouseEvents);
  entry->setMinimumHeight(row->sizeHint().height());
  connect(entry, &QPushButton::clicked, this, [this, files] { RecentWanted.Raise(files); });
  return entry;
}

void StartPage::SetRecent(const QList<QStringList>& entries) {
  for (QPushButton* entry : std::exchange(recent_, {})) entry->deleteLater();
  for (const QStringList& files : entries.first(std::min(entries.size(), kMostRecent))) {
    recent_ << NewEntry(files);
    entries_->addWidget(recent_.constLast());
  }
  recentTitle_->setVisible(!recent_.isEmpty());
}

void StartPage::UpdateTexts() {
  title_->setText(texts_(Text::Hint));
  hint_->setText(texts_(Text::HintMore));
  recentTitle_->setText(texts_(Text::StartRecent));
  open_->setText(texts_(Text::FileOpen));
  sample_->setText(texts_(Text::StartSample));
  sample_->setToolTip(texts_(Text::StartSampleMore));
}

void StartPage::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  setGeometry(area_.rect());
  raise();
}

bool StartPage::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &area_ && event->type() == QEvent::Resize) setGeometry(area_.rect());
  return QWidget::eventFilter(watched, event);
}

}  // namespace quorvane::desktop

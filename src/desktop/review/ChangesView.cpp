#include "desktop/review/ChangesView.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QScrollBar>
#include <QStackedWidget>
#include <QToolBar>
#include <QVBoxLayout>
#include <utility>

#include "desktop/platform/QtText.h"
#include "desktop/review/ChangePainter.h"
#include "desktop/review/ModuleChanges.h"
#include "native/files/AtomicFile.h"
#include "platform/CodePage.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

using Kind = ChangeRows::Kind;

ChangesView::ChangesView(workbench::Workbench& workbench, const Texts& texts, QWidget* parent)
    : QWidget(parent),
      workbench_(workbench),
      texts_(texts),
      changes_(workbench),
      rows_(changes_, texts),
      summary_(new QLabel),
      empty_(new QLabel),
      list_(new QListView),
      stack_(new QStackedWidget),
      painter_(new ChangePainter(rows_, texts, this)) {
  Build();
  updated_ = changes_.Updated.Subscribe([this] { Refill(); });
  UpdateSummary();
}

ChangesView::~ChangesView() {
  changes_.Follow(false);
}

void ChangesView::Build() {
  auto* bar = new QToolBar;
  bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
  const auto add = [&](Text text, const QKeySequence& keys, auto run) {
    QAction* action = bar->addAction(QString());
    connect(action, &QAction::triggered, this, run);
    actions_.push_back({action, text, keys});
  };
  add(Text::ChangesPutBack, QKeySequence(Qt::Key_Delete), [this] { PutBack(); });
  add(Text::ChangesPrevious, QKeySequence(Qt::SHIFT | Qt::Key_F7), [this] { Step(-1); });
  add(Text::ChangesNext, QKeySequence(Qt::Key_F7), [this] { Step(1); });
  bar->addSeparator();
  add(Text::ChangesSaveAll, QKeySequence(), [this] { SaveAllWanted.Raise(); });
  add(Text::ChangesCopyPatch, QKeySequence::Copy, [this] { CopyPatch(); });
  add(Text::ChangesExportPatch, QKeySequence(), [this] { ExportPatch(); });

  list_->setModel(&rows_);
  list_->setItemDelegate(painter_);
  list_->setUniformItemSizes(true);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setMouseTracking(true);
  list_->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  list_->installEventFilter(this);
  list_->viewport()->installEventFilter(this);
  connect(list_, &QListView::doubleClicked, this, [this](const QModelIndex& index) { Open(index); });
  empty_->setAlignment(Qt::AlignCenter);
  empty_->setForegroundRole(QPalette::PlaceholderText);
  empty_->setWordWrap(true);
  empty_->setFocusPolicy(Qt::ClickFocus);
  stack_->addWidget(empty_);
  stack_->addWidget(list_);

  auto* head = new QHBoxLayout;
  head->setContentsMargins(8, 2, 8, 2);
  head->setSpacing(12);
  head->addWidget(summary_);
  head->addStretch(1);
  head->addWidget(bar);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addLayout(head);
  layout->addWidget(stack_, 1);
}

void ChangesView::UpdateTexts() {
  for (const auto& [action, text, keys] : actions_) {
    action->setText(texts_(text));
    const QString shown = keys.toString(QKeySequence::NativeText);
    action->setToolTip(shown.isEmpty() ? texts_(text) : texts_(text) + QStringLiteral(" (%1)").arg(shown));
  }
  list_->setAccessibleName(texts_(Text::Changes));
  empty_->setText(texts_(Text::ChangesNone));
  UpdateSummary();
  list_->viewport()->update();
}

void ChangesView::UpdateSummary() {
  qsizetype lines = 0;
  for (const auto& module : changes_.Modules()) lines += std::max(module->Added(), module->Removed());
  const auto modules = static_cast<qsizetype>(changes_.Modules().size());
  summary_->setText(modules == 0 ? QString()
                                 : texts_.Counted(Text::ChangesModules, modules) + QStringLiteral("  \u00B7  ") +
                                       texts_.Counted(Text::ChangesLines, lines));
  for (const Command& command : actions_) command.action->setEnabled(modules > 0);
  QWidget* shown = modules > 0 ? static_cast<QWidget*>(list_) : empty_;
  const bool focused = stack_->currentWidget()->hasFocus();
  stack_->setCurrentWidget(shown);
  setFocusProxy(shown);  // keys of the list never reach the code behind it
  if (focused) shown->setFocus();
}

/// The selection stays at its hunk, or at what is now in its place, and as far from the upper edge.
void ChangesView::Refill() {
  const QModelIndex current = list_->currentIndex();
  const int scrolled = list_->verticalScrollBar()->value();
  const int above = current.isValid() ? current.row() - scrolled : 0;
  const auto component = current.isValid() ? rows_.ComponentAt(current.row()) : nullptr;
  const std::size_t hunk = current.isValid() ? rows_.At(current.row()).hunk : 0;
  rows_.Fill();
  UpdateSummary();
  const int row = component ? rows_.RowOf(*component, hunk) : -1;
  list_->verticalScrollBar()->setValue(row >= 0 ? row - above : scrolled);
  if (rows_.rowCount() > 0) list_->setCurrentIndex(rows_.index(row >= 0 ? row : 0));
}

void ChangesView::PutBack() {
  const QModelIndex index = list_->currentIndex();
  if (!index.isValid()) return;
  const ChangeRows::Row row = rows_.At(index.row());
  const ModuleChanges& changes = rows_.ModuleOf(row);
  const std::shared_ptr<workbench::Module> module = changes.TheComponent()->TheModule();
  const bool done =
      row.kind == Kind::Module ? changes.RevertAll(workbench_.Turns()) : changes.Revert(row.hunk, workbench_.Turns());
  if (done) done_.push_back({module, module->State()});
  changes_.Update();
}

void ChangesView::UndoPutBack() {
  while (!done_.empty()) {
    const Done last = done_.back();
    done_.pop_back();
    const auto module = last.module.lock();
    if (!module || module->State() != last.state) continue;
    workbench_.Turns().Next();
    module->Undo();
    return changes_.Update();
  }
}

void ChangesView::Step(int step) {
  const int row = rows_.NextHunk(list_->currentIndex().row(), step);
  if (row < 0) return;
  list_->setCurrentIndex(rows_.index(row));
  list_->scrollTo(rows_.index(row), QAbstractItemView::PositionAtCenter);
}

template <class Run>
void ChangesView::Guarded(Text what, Run run) {
  try {
    run();
  } catch (const std::exception& error) {
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Quorvane"), texts_(what), QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(QString::fromUtf8(error.what()));
    box.exec();
  }
}

Patch ChangesView::ThePatch() {
  changes_.Update();
  std::vector<std::shared_ptr<workbench::Component>> components;
  for (const auto& module : changes_.Modules()) components.push_back(module->TheComponent());
  return Patch::Of(components);
}

void ChangesView::CopyPatch() {
  Guarded(Text::ChangesNoPatch, [&] {
    const Patch patch = ThePatch();
    std::u16string text;
    workbench_.ThePage().Decode(patch.bytes, text);
    QApplication::clipboard()->setText(ToQString(text));
    Told.Raise(texts_(Text::ChangesPatchCopied).arg(QString::fromStdString(patch.folder)));
  });
}

void ChangesView::WritePatch(const std::string& path) {
  const Patch patch = ThePatch();
  native::WriteFileWhole(path, patch.bytes);
  Told.Raise(texts_(Text::ChangesPatchWritten).arg(QString::fromStdString(path), QString::fromStdString(patch.folder)));
}

void ChangesView::ExportPatch() {
  const QString file = QFileDialog::getSaveFileName(this, texts_(Text::ChangesExportPatch).remove(QLatin1String("...")),
                                                    QStringLiteral("changes.patch"), QStringLiteral("*.patch *.diff"));
  if (!file.isEmpty()) Guarded(Text::ChangesNoPatch, [&] { WritePatch(file.toStdString()); });
}

/// To the line in the code; from a line that went, to where it stood.
void ChangesView::Open(const QModelIndex& index) {
  if (!index.isValid()) return;
  const ChangeRows::Row row = rows_.At(index.row());
  ModuleChanges& changes = rows_.ModuleOf(row);
  const auto component = changes.TheComponent();
  const std::int32_t line = row.after >= 0 ? row.after : changes.Hunks()[row.hunk].afterBegin;
  LineWanted.Raise(*component, line + 1);
}

/// The keys of the buttons too, which count in the list alone.
bool ChangesView::TakeKey(int key, Qt::KeyboardModifiers modifiers) {
  const QModelIndex index = list_->currentIndex();
  for (const Command& command : actions_) {
    if (command.keys != QKeySequence(key | static_cast<int>(modifiers))) continue;
    command.action->trigger();
    return true;
  }
  if (modifiers == Qt::ControlModifier && key == Qt::Key_Z) {
    UndoPutBack();
    return true;
  }
  if (modifiers != Qt::NoModifier || !index.isValid()) return false;
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    Open(index);
    return true;
  }
  if (key != Qt::Key_Left && key != Qt::Key_Right) return false;
  const std::size_t module = rows_.At(index.row()).module;
  const auto component = rows_.ModuleOf(rows_.At(index.row())).TheComponent();
  rows_.Fold(module, key == Qt::Key_Left);
  list_->setCurrentIndex(rows_.index(rows_.RowOf(*component, 0)));
  return true;
}

bool ChangesView::TakeClick(const QPoint& place) {
  const QModelIndex index = list_->indexAt(place);
  if (!index.isValid()) return false;
  const QRect row = list_->visualRect(index);
  if (painter_->RevertPlace(row, index.row(), list_->fontMetrics()).contains(place)) {
    list_->setCurrentIndex(index);
    PutBack();
    return true;
  }
  const bool onArrow = place.x() < row.left() + 3 * list_->fontMetrics().averageCharWidth();
  if (rows_.At(index.row()).kind != Kind::Module || !onArrow) return false;
  list_->setCurrentIndex(index);
  return TakeKey(rows_.IsFolded(rows_.At(index.row()).module) ? Qt::Key_Right : Qt::Key_Left, Qt::NoModifier);
}

bool ChangesView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == list_->viewport() && event->type() == QEvent::MouseButtonPress) {
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    if (mouse.button() == Qt::LeftButton && TakeClick(mouse.position().toPoint())) return true;
  }
  if (watched == list_ && (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride)) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (event->type() == QEvent::KeyPress) return TakeKey(key.key(), key.modifiers() & ~Qt::KeypadModifier);
    // What the window's menu would do with these is meant for the code window in front.
    if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Copy)) event->accept();
  }
  return QWidget::eventFilter(watched, event);
}

void ChangesView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  changes_.Follow(true);
}

void ChangesView::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  changes_.Follow(false);
}

}  // namespace quorvane::desktop

#include "desktop/navigate/ProcedureBar.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QTextBlock>
#include <algorithm>
#include <chrono>

#include "desktop/editor/CodeEdit.h"
#include "workbench/model/Module.h"

namespace quorvane::desktop {

namespace {

constexpr std::chrono::milliseconds kDelay{80};
constexpr int kRowsShown = 24;
constexpr int kSpace = 2;  // pixels

QComboBox* MakeBox() {
  auto* box = new QComboBox;
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);  // a module can have thousands
  box->setMaxVisibleItems(kRowsShown);
  return box;
}

void Fill(QComboBox& box, const QStringList& words) {
  const QSignalBlocker silent(box);
  box.clear();
  box.addItems(words);
}

void Choose(QComboBox& box, int index) {
  const QSignalBlocker silent(box);
  box.setCurrentIndex(index);
}

QStringList Words(const QComboBox& box) {
  QStringList words;
  for (int i = 0; i < box.count(); ++i) words << box.itemText(i);
  return words;
}

}  // namespace

ProcedureBar::ProcedureBar(CodeEdit& editor, const Texts& texts)
    : editor_(editor), texts_(texts), objects_(MakeBox()), procedures_(MakeBox()) {
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(kSpace, kSpace, kSpace, kSpace);
  layout->setSpacing(kSpace);
  layout->addWidget(objects_, 1);
  layout->addWidget(procedures_, 1);
  soon_.setSingleShot(true);
  soon_.setInterval(kDelay);
  connect(&soon_, &QTimer::timeout, this, [this] {
    if (isVisible()) Update();
  });
  connect(&editor_, &QPlainTextEdit::cursorPositionChanged, this, [this] { soon_.start(); });
  connect(objects_, &QComboBox::activated, this, [this](int index) { ChooseObject(index); });
  connect(procedures_, &QComboBox::activated, this, [this](int index) { ChooseProcedure(index); });
  changed_ = editor_.TheModule()->Changed.Subscribe([this] { soon_.start(); });
  UpdateTexts();
}

void ProcedureBar::UpdateTexts() {
  objects_->setAccessibleName(texts_(Text::BoxObjects));
  procedures_->setAccessibleName(texts_(Text::BoxProcedures));
  objects_->setToolTip(texts_(Text::BoxObjects));
  procedures_->setToolTip(texts_(Text::BoxProcedures));
  read_ = 0;
  if (isVisible()) Update();
}

void ProcedureBar::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Update();
}

void ProcedureBar::Update() {
  soon_.stop();
  const bool anew = read_ != editor_.TheModule()->Revision();
  if (anew) Read();
  const std::int32_t line = editor_.textCursor().blockNumber() + 1;
  const ModuleOutline::Entry* entry = outline_.AtLine(line);
  const QString object = entry != nullptr ? entry->object : QString();
  if (anew || object != object_) ShowObject(object);
  Choose(*objects_, object.isEmpty() ? 0 : std::max(0, objects_->findText(object)));
  const auto row = entry == nullptr ? lines_.end() : std::ranges::find(lines_, entry->startLine);
  Choose(*procedures_, row == lines_.end() ? 0 : static_cast<int>(row - lines_.begin()));
}

void ProcedureBar::Read() {
  outline_ = ModuleOutline(*editor_.TheModule());
  read_ = editor_.TheModule()->Revision();
  QStringList objects;
  for (const ModuleOutline::Entry& entry : outline_.Entries()) objects << entry.object;
  objects.sort(Qt::CaseInsensitive);
  objects.removeDuplicates();
  objects.removeAll(QString());
  objects.prepend(texts_(Text::BoxGeneral));
  if (objects != Words(*objects_)) Fill(*objects_, objects);
}

/// Lists the procedures of an object by name; those of none below "(Declarations)".
void ProcedureBar::ShowObject(const QString& object) {
  object_ = object;
  std::vector<const ModuleOutline::Entry*> listed;
  for (const ModuleOutline::Entry& entry : outline_.Entries()) {
    if (entry.object == object) listed.push_back(&entry);
  }
  std::ranges::stable_sort(listed, [](const auto* left, const auto* right) {
    return left->label.compare(right->label, Qt::CaseInsensitive) < 0;
  });
  QStringList words;
  lines_.clear();
  if (object.isEmpty()) {
    words << texts_(Text::BoxDeclarations);
    lines_.push_back(0);
  }
  for (const ModuleOutline::Entry* entry : listed) {
    words << entry->label;
    lines_.push_back(entry->startLine);
  }
  if (words != Words(*procedures_)) Fill(*procedures_, words);
}

/// The first procedure of the object, or the declarations.
void ProcedureBar::ChooseObject(int index) {
  ShowObject(index <= 0 ? QString() : objects_->itemText(index));
  if (object_.isEmpty()) return GoTo(1);
  const auto first = std::ranges::find(outline_.Entries(), object_, &ModuleOutline::Entry::object);
  if (first != outline_.Entries().end()) GoTo(first->startLine);
}

void ProcedureBar::ChooseProcedure(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= lines_.size()) return;
  GoTo(std::max(1, lines_[static_cast<std::size_t>(index)]));
}

void ProcedureBar::GoTo(std::int32_t line) {
  editor_.GoToLine(ModuleOutline::HeaderLine(*editor_.TheModule(), line));
  editor_.setFocus();
  Update();
}

}  // namespace quorvane::desktop

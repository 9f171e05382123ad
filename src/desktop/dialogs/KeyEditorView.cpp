#include "desktop/dialogs/KeyEditorView.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTreeWidget>

#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "base/Error.h"
#include "base/FlagScope.h"
#include "chordtrap/ChordTrapControl.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/Texts.h"

namespace quorvane::desktop {

KeyEditorView::KeyEditorView(chordtrap::ChordTrapControl& editor, QWidget* parent)
    : QWidget(parent),
      editor_(editor),
      commands_(new QTreeWidget(this)),
      box_(new KeyBox(this)),
      add_(new QPushButton(this)),
      remove_(new QPushButton(this)),
      warning_(new QLabel(this)) {
  commands_->setRootIsDecorated(false);
  commands_->setColumnCount(2);
  commands_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
  commands_->header()->setSectionsMovable(false);
  warning_->setWordWrap(true);
  auto* layout = new QVBoxLayout(this);
  auto* below = new QHBoxLayout;
  below->addWidget(box_, 1);
  below->addWidget(add_);
  below->addWidget(remove_);
  layout->addWidget(commands_, 1);
  layout->addLayout(below);
  layout->addWidget(warning_);
  Listen();
  Follow();
}

void KeyEditorView::Listen() {
  changed_ = editor_.Changed.Subscribe([this] { Follow(); });
  pressed_ = box_->Pressed.Subscribe([this](const chordtrap::KeyChord& chord) { editor_.Press(chord); });
  connect(commands_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    if (!busy_) editor_.Select(item != nullptr ? commands_->indexOfTopLevelItem(item) + 1 : 0);
  });
  connect(add_, &QPushButton::clicked, this, [this] { Add(); });
  connect(remove_, &QPushButton::clicked, this, [this] { editor_.Remove(); });
}

QString KeyEditorView::Warning() const {
  return warning_->text();
}

/// A key that is taken stays in the box, with the line that says whose it is.
void KeyEditorView::Add() {
  try {
    editor_.Add();
  } catch (const Error&) {
    QApplication::beep();
  }
}

void KeyEditorView::Follow() {
  const FlagScope busy(busy_);
  commands_->setHeaderLabels({ToQString(editor_.FunctionCaption), ToQString(editor_.HotkeyCaption)});
  commands_->setAccessibleName(ToQString(editor_.FunctionCaption));
  box_->setAccessibleName(ToQString(editor_.HotkeyCaption));
  FollowRows();
  box_->setText(ToQString(editor_.Pressed()));
  add_->setText(ToQString(editor_.AddCaption));
  remove_->setText(ToQString(editor_.RemoveCaption));
  const QString owner = Owner();
  add_->setEnabled(editor_.CanAdd() && owner.isEmpty());
  remove_->setEnabled(editor_.CanRemove());
  Texts words;
  words.Language = Globals::Language().Language;
  warning_->setText(owner.isEmpty() ? QString() : words(Text::KeyTaken).arg(ToQString(editor_.Pressed()), owner));
}

void KeyEditorView::FollowRows() {
  while (commands_->topLevelItemCount() > editor_.Count()) delete commands_->takeTopLevelItem(editor_.Count());
  while (commands_->topLevelItemCount() < editor_.Count()) commands_->addTopLevelItem(new QTreeWidgetItem);
  for (int i = 0; i < editor_.Count(); ++i) {
    QTreeWidgetItem* item = commands_->topLevelItem(i);
    item->setText(0, ToQString(editor_.Description(i + 1)));
    item->setText(1, ToQString(editor_.Key(i + 1)));
  }
  commands_->setCurrentItem(editor_.Selected() > 0 ? commands_->topLevelItem(editor_.Selected() - 1) : nullptr);
}

QString KeyEditorView::Owner() const {
  if (editor_.Pressed().empty()) return {};
  for (int row = 1; row <= editor_.Count(); ++row) {
    if (row != editor_.Selected() && editor_.Key(row) == editor_.Pressed()) return ToQString(editor_.Description(row));
  }
  return {};
}

}  // namespace quorvane::desktop

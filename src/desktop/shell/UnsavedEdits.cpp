#include "desktop/shell/UnsavedEdits.h"

#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <cstdio>
#include <exception>

#include "desktop/files/ErrorBox.h"
#include "desktop/files/FileCommands.h"
#include "desktop/platform/QtText.h"
#include "desktop/shell/MainWindow.h"

namespace quorvane::desktop {

namespace {

QString Names(const std::vector<EditJournal::Edit>& edits) {
  QStringList names;
  for (const auto& edit : edits)
    names << ToQString(edit.name) + QLatin1String("  ") + QString::fromStdString(edit.path);
  return names.join(QLatin1Char('\n'));
}

void Tell(QWidget& window, const QString& what, const QString& names) {
  QMessageBox box(QMessageBox::Warning, BoxTitle(), what, QMessageBox::Ok, &window);
  box.setTextFormat(Qt::PlainText);
  box.setInformativeText(names);
  box.exec();
}

}  // namespace

void UnsavedEdits::Keep() const {
  if (!on_) return;
  std::vector<std::string> opened;
  for (const QString& file : window_.Files().OpenFiles()) opened.push_back(file.toStdString());
  try {
    journal_.Write(workbench_, opened);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quorvane: edits that are not saved could not be kept: %s\n", error.what());
  }
}

void UnsavedEdits::Drop() const {
  if (on_) journal_.Remove();
}

void UnsavedEdits::Offer() {
  if (!on_) return;
  const Texts& texts = window_.Words();
  for (const EditJournal::Found& found : journal_.Left()) {
    QMessageBox box(QMessageBox::Question, BoxTitle(),
                    texts.Counted(Text::EditsFound, static_cast<qsizetype>(found.edits.size())),
                    QMessageBox::Yes | QMessageBox::Discard | QMessageBox::No, &window_);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(Names(found.edits));
    box.button(QMessageBox::Yes)->setText(texts(Text::EditsBring));
    box.button(QMessageBox::Discard)->setText(texts(Text::EditsDelete));
    box.button(QMessageBox::No)->setText(texts(Text::NotNowAnswer));
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
    const int answer = box.exec();
    if (answer == QMessageBox::Yes) BringBack(found);
    if (answer == QMessageBox::Discard) EditJournal::Delete(found);
  }
}

/// The edits are in this run's journal before the old one goes.
void UnsavedEdits::BringBack(const EditJournal::Found& found) {
  QStringList missing;
  for (const std::string& file : found.opened) {
    const QString name = QString::fromStdString(file);
    if (!window_.Files().OpenFiles().contains(name)) missing << name;
  }
  window_.Files().Add(missing);
  const EditJournal::Outcome outcome = EditJournal::BringBack(workbench_, found);
  Keep();
  window_.Files().Saved.Raise();  // the modified marks
  const Texts& texts = window_.Words();
  const auto counted = [&](Text text, const auto& edits) {
    return texts.Counted(text, static_cast<qsizetype>(edits.size()));
  };
  window_.statusBar()->showMessage(counted(Text::EditsKept, outcome.made));
  if (!outcome.newer.empty()) Tell(window_, counted(Text::EditsOverNewer, outcome.newer), Names(outcome.newer));
  if (outcome.left.empty()) return EditJournal::Delete(found);
  Tell(window_, counted(Text::EditsLost, outcome.left).arg(QString::fromStdString(found.journal)), Names(outcome.left));
}

}  // namespace quorvane::desktop

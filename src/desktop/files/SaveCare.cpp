#include "desktop/files/SaveCare.h"

#include <QMessageBox>
#include <QPushButton>
#include <QStringList>
#include <exception>
#include <string>
#include <vector>

#include "desktop/files/ErrorBox.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/Texts.h"
#include "workbench/model/Component.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/PathFinder.h"
#include "workbench/save/GroupSaver.h"
#include "workbench/save/SaveJournal.h"

namespace quorvane::desktop {

namespace {

using workbench::SaveJournal;

QString Names(const SaveJournal& save, bool replaced) {
  QStringList names;
  for (const SaveJournal::Entry& entry : save.Entries()) {
    if (entry.Replaced() == replaced) names << QString::fromStdString(workbench::ShownPath(entry.target));
  }
  return names.join(QLatin1Char('\n'));
}

bool Settle(const SaveJournal& save, QWidget& window, const Texts& texts) {
  QMessageBox box(QMessageBox::Question, BoxTitle(),
                  texts(Text::HalfSaveQuestion).arg(Names(save, true), Names(save, false)),
                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &window);
  box.setTextFormat(Qt::PlainText);
  box.button(QMessageBox::Save)->setText(texts(Text::FinishAnswer));
  box.button(QMessageBox::Discard)->setText(texts(Text::GoBackAnswer));
  box.button(QMessageBox::Cancel)->setText(texts(Text::NotNowAnswer));
  const int answer = box.exec();
  if (answer != QMessageBox::Save && answer != QMessageBox::Discard) return false;
  try {
    save.Recover(answer == QMessageBox::Save ? workbench::Recovery::Finish : workbench::Recovery::GoBack);
  } catch (const std::exception& error) {
    TellError(window, texts(Text::CannotSave), QString::fromUtf8(error.what()));
  }
  return true;
}

}  // namespace

bool SettleHalfSaves(const workbench::Workbench& workbench, QWidget& window, const Texts& texts) {
  std::vector<std::string> paths;
  for (const auto& project : workbench.Projects()) {
    for (const auto& component : project->Components()) paths.push_back(component->Path());
  }
  bool changed = false;
  try {
    for (const SaveJournal& save : workbench::FindHalfSaves(paths)) changed = Settle(save, window, texts) || changed;
  } catch (const std::exception& error) {
    TellError(window, texts(Text::CannotOpen), QString::fromUtf8(error.what()));
  }
  return changed;
}

bool MayWriteOutside(const workbench::Workbench& workbench, const workbench::Component* component, QWidget& window,
                     const Texts& texts) {
  QStringList names;
  try {
    for (const std::string& path : workbench::FilesOutside(workbench, component)) names << QString::fromStdString(path);
  } catch (const std::exception&) {
    return true;  // the save tells what is wrong
  }
  if (names.isEmpty()) return true;
  QMessageBox box(QMessageBox::Warning, BoxTitle(), texts(Text::OutsideQuestion).arg(names.join(QLatin1Char('\n'))),
                  QMessageBox::Save | QMessageBox::Cancel, &window);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(QMessageBox::Cancel);
  box.button(QMessageBox::Save)->setText(texts(Text::SaveAnswer));
  box.button(QMessageBox::Cancel)->setText(texts(Text::CancelAnswer));
  return box.exec() == QMessageBox::Save;
}

}  // namespace quorvane::desktop

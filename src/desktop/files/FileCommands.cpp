#include "desktop/files/FileCommands.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <algorithm>
#include <exception>

#include "base/Error.h"
#include "desktop/files/ErrorBox.h"
#include "desktop/files/SaveCare.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/Texts.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/Opener.h"
#include "workbench/save/GroupSaver.h"

namespace quorvane::desktop {

namespace {

using workbench::Component;
using workbench::Project;

constexpr int kProgressDelay = 400;  // ms

std::vector<std::string> ToPaths(const QStringList& files) {
  std::vector<std::string> paths;
  for (const QString& file : files) paths.push_back(QDir::current().absoluteFilePath(file).toStdString());
  return paths;
}

}  // namespace

FileCommands::FileCommands(workbench::Workbench& workbench, QWidget& window, const Texts& texts, QSettings& settings)
    : workbench_(workbench), window_(window), texts_(texts), encodings_(settings), disk_(workbench, window, texts) {
  diskChanged_ = disk_.Changed.Subscribe([this] { Saved.Raise(); });
  diskTold_ = disk_.Told.Subscribe([this](const QString& line) { Told.Raise(line); });
}

QStringList FileCommands::AskForFiles() const {
  const QString modules = QStringLiteral("*.bas *.cls *.frm *.ctl *.pag *.dob *.dsr");
  const auto both = [](const QString& patterns) { return patterns + QLatin1Char(' ') + patterns.toUpper(); };
  const auto filter = [&](Text words, const QString& patterns) {
    return texts_(words) + QLatin1String(" (") + patterns + QLatin1Char(')');
  };
  return QFileDialog::getOpenFileNames(
      &window_, texts_(Text::OpenTitle), QString(),
      QStringList{filter(Text::FilterProjects, both(QStringLiteral("*.vbg *.vbp"))),
                  filter(Text::FilterModules, both(modules)), filter(Text::FilterAll, QStringLiteral("*"))}
          .join(QLatin1String(";;")));
}

bool FileCommands::Open(const QStringList& files) {
  if (files.isEmpty()) return false;
  const QStringList before = open_;
  if (!CloseAll()) return false;
  const bool opened = OpenNow(files);
  if (!opened && !before.isEmpty()) OpenNow(before);
  return opened;
}

bool FileCommands::Add(const QStringList& files) {
  return !files.isEmpty() && OpenNow(files);
}

bool FileCommands::OpenNow(const QStringList& files) {
  QProgressDialog progress(texts_(Text::Loading), texts_(Text::Cancel), 0, 0, &window_);
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(kProgressDelay);
  const auto tell = [&](std::size_t begun, std::size_t total) {
    progress.setMaximum(static_cast<int>(total));
    progress.setValue(static_cast<int>(begun));  // lets events happen, now and then
    return !progress.wasCanceled();
  };
  if (open_.isEmpty()) encodings_.SetGroup(QString::fromStdString(ToPaths(files).front()));
  workbench::OpenChoice choice;
  choice.pageOf = [this](const std::string& project, const std::string& module) {
    return encodings_.Of(project, module);
  };
  std::vector<std::string> warnings;
  try {
    warnings = workbench::OpenFilesInto(workbench_, ToPaths(files), tell, choice);
  } catch (const Error& error) {
    progress.reset();
    if (!error.Is(ErrorNumber::UserInterrupt))
      TellError(window_, texts_(Text::CannotOpen), texts_.Reason(ToQString(error.Description)));
    return false;
  }
  progress.reset();
  for (const std::string& path : ToPaths(files)) {
    const QString name = QString::fromStdString(path);
    if (!open_.contains(name)) open_ << name;
  }
  disk_.Watch();
  Opened.Raise();
  if (OfferPages()) return true;
  QStringList missed;
  for (const std::string& warning : warnings) missed << QString::fromStdString(warning);
  Missed.Raise(missed);
  if (SettleHalfSaves(workbench_, window_, texts_)) disk_.Check();
  return true;
}

FileCommands::ComponentList FileCommands::Modified(const Project* project) const {
  ComponentList modified;
  for (const auto& open : workbench_.Projects()) {
    if (project != nullptr && open.get() != project) continue;
    for (const auto& component : open->Components()) {
      if (component->TheModule() && component->TheModule()->Modified()) modified.push_back(component);
    }
  }
  return modified;
}

int FileCommands::ModifiedCount() const {
  return static_cast<int>(Modified(nullptr).size());
}

template <class SaveFiles>
bool FileCommands::Guarded(SaveFiles save) {
  try {
    std::size_t dropped = 0;
    for (const workbench::SavedFile& file : save()) dropped += file.droppedHiddenLines.size();
    if (dropped > 0) Told.Raise(texts_.Counted(Text::DroppedLines, static_cast<qsizetype>(dropped)));
  } catch (const std::exception& error) {
    TellError(window_, texts_(Text::CannotSave), texts_.Reason(QString::fromUtf8(error.what())));
    Saved.Raise();
    return false;
  }
  disk_.Watch();  // a save puts another file into the place of the old one
  Saved.Raise();
  return true;
}

bool FileCommands::Save(const Component& component) {
  ComponentList wanted = disk_.OfFile(component.Path());
  std::erase_if(wanted, [](const auto& twin) { return !twin->TheModule()->Modified(); });
  if (!wanted.empty() && !disk_.MaySave(wanted)) return false;
  if (!MayWriteOutside(workbench_, &component, window_, texts_)) return false;
  return Guarded([&] { return workbench::SaveFileOf(workbench_, component); });
}

bool FileCommands::SaveAll() {
  const ComponentList modified = Modified(nullptr);
  if (!modified.empty() && !disk_.MaySave(modified)) return false;
  if (!MayWriteOutside(workbench_, nullptr, window_, texts_)) return false;
  return Guarded([&] { return workbench::SaveGroup(workbench_); });
}

/// Asks once for all of them.
bool FileCommands::MayClose(const ComponentList& modified) {
  if (modified.empty()) return true;
  QStringList names;
  for (const auto& component : modified) names << ToQString(component->FullName());
  QMessageBox box(QMessageBox::Question, BoxTitle(), texts_.Counted(Text::SaveQuestion, names.size()),
                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, &window_);
  box.setDefaultButton(QMessageBox::Save);
  box.button(QMessageBox::Save)->setText(texts_(Text::SaveAnswer));
  box.button(QMessageBox::Discard)->setText(texts_(Text::DiscardAnswer));
  box.button(QMessageBox::Cancel)->setText(texts_(Text::CancelAnswer));
  if (names.size() > 8) {
    box.setDetailedText(names.join(QLatin1Char('\n')));
  } else {
    box.setInformativeText(names.join(QLatin1Char('\n')));
  }
  switch (box.exec()) {
    case QMessageBox::Save:
      return std::ranges::all_of(
          modified, [&](const auto& component) { return Save(*component) || !component->TheModule()->Modified(); });
    case QMessageBox::Discard:
      return true;
    default:
      return false;
  }
}

FileCommands::States FileCommands::ModifiedStates() const {
  States states;
  for (const auto& component : Modified(nullptr)) states.emplace_back(component.get(), component->TheModule()->State());
  return states;
}

bool FileCommands::MayEndSession() {
  if (!MayClose(Modified(nullptr))) return false;
  givenUp_ = ModifiedStates();
  return true;
}

bool FileCommands::CloseAll() {
  if (ModifiedStates() != givenUp_ && !MayClose(Modified(nullptr))) return false;
  CloseNow();
  return true;
}

void FileCommands::CloseNow() {
  while (!workbench_.Projects().empty()) workbench_.Close(workbench_.Projects().back());
  open_.clear();
  disk_.Watch();
  Opened.Raise();
}

bool FileCommands::CloseProject(const std::shared_ptr<Project>& project) {
  if (!MayClose(Modified(project.get()))) return false;
  workbench_.Close(project);
  if (workbench_.Projects().empty()) open_.clear();
  disk_.Watch();
  Opened.Raise();
  return true;
}

}  // namespace quorvane::desktop

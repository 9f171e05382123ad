#include "desktop/files/DiskChanges.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <exception>

#include "base/FlagScope.h"
#include "base/Text.h"
#include "desktop/files/DifferenceBox.h"
#include "desktop/files/ErrorBox.h"
#include "desktop/files/ThreeWayBox.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/Texts.h"
#include "native/files/FileBytes.h"
#include "platform/CodePage.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"
#include "workbench/save/GroupSaver.h"
#include "workbench/save/UnifiedDiff.h"
#include "workbench/text/SourceFile.h"

namespace quorvane::desktop {

using native::FileStamp;
using workbench::Component;

namespace {

constexpr int kSettle = 300;  // ms; whoever replaces a file may do it in several steps

QString PathOf(const Component& component) {
  return QDir::toNativeSeparators(QString::fromStdString(component.Path()));
}

bool HasEdits(const DiskChanges::ComponentList& twins) {
  return std::ranges::any_of(twins, [](const auto& twin) { return twin->TheModule()->Modified(); });
}

/// The lines of code in the bytes of a file.
std::u16string CodeOf(const workbench::SourceFile& file, const CodePage& page) {
  std::u16string text;
  for (std::size_t i = 0; i < file.Lines().size(); ++i) {
    if (i > 0) text += kCrLf;
    page.Decode(file.LineBytes(i), text);
  }
  return text;
}

}  // namespace

DiskChanges::DiskChanges(workbench::Workbench& workbench, QWidget& window, const Texts& texts)
    : workbench_(workbench), window_(window), texts_(texts) {
  settle_.setSingleShot(true);
  settle_.setInterval(kSettle);
  QObject::connect(&settle_, &QTimer::timeout, &settle_, [this] { Heard(); });
  const auto listen = [this] { settle_.start(); };
  QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &settle_, listen);
  QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &settle_, listen);
}

/// The folders tell what comes and goes, the files what is written into them. Where the system listens to no more
/// files, the check when the window comes to the front remains.
void DiskChanges::Watch() {
  QSet<QString> wanted;
  for (const auto& project : workbench_.Projects()) {
    for (const auto& component : project->Components()) {
      if (!component->TheModule() || component->Path().empty()) continue;
      const QFileInfo file(QString::fromStdString(component->Path()));
      if (file.exists()) wanted << file.filePath();
      if (file.dir().exists()) wanted << file.path();
    }
  }
  const QStringList watched = watcher_.files() + watcher_.directories();
  const QSet<QString> before(watched.begin(), watched.end());
  const auto change = [](const QSet<QString>& paths, auto act) {
    if (!paths.isEmpty()) act(QStringList(paths.begin(), paths.end()));
  };
  change(before - wanted, [this](const QStringList& paths) { watcher_.removePaths(paths); });
  change(wanted - before, [this](const QStringList& paths) { watcher_.addPaths(paths); });
  FindClashes();
}

/// A window that is not in front asks when it comes there; one behind a box, when that is answered.
void DiskChanges::Heard() {
  if (QApplication::applicationState() != Qt::ApplicationActive) return;
  if (asking_ || QApplication::activeModalWidget() != nullptr) return settle_.start();
  Check();
}

void DiskChanges::Check() {
  if (asking_) return;
  const FlagScope asking(asking_);
  ComponentList changed;
  ComponentList gone;
  for (const auto& project : workbench_.Projects()) {
    for (const auto& component : project->Components()) {
      if (!component->TheModule() || component->Path().empty()) continue;
      const auto stamp = FileStamp::Of(component->Path());
      if (!stamp) gone.push_back(component);
      if (stamp) gone_.erase(component->Path());
      if (stamp && !(*stamp == component->Stamp())) changed.push_back(component);
    }
  }
  for (const auto& component : changed) {
    if (!HasEdits(OfFile(component->Path()))) FollowFile(*component, false);
  }
  for (const auto& component : gone) {
    if (!gone_.contains(component->Path()) && !FileStamp::Of(component->Path())) Restore(*component);
  }
  if (!changed.empty() || !gone.empty()) Changed.Raise();
  Watch();
}

bool DiskChanges::MaySave(const ComponentList& wanted) {
  const FlagScope asking(asking_);
  for (const auto& component : wanted) {
    if (component->Path().empty()) continue;
    const bool there = FileStamp::Of(component->Path()).has_value();
    const bool goesOn = there ? FollowFile(*component, true) : Restore(*component);
    if (!goesOn && component->TheModule()->Modified()) return false;
  }
  Changed.Raise();
  return std::ranges::any_of(wanted, [](const auto& component) { return component->TheModule()->Modified(); });
}

DiskChanges::ComponentList DiskChanges::OfFile(const std::string& path) const {
  ComponentList found;
  for (const auto& project : workbench_.Projects()) {
    for (const auto& component : project->Components()) {
      if (component->TheModule() && component->Path() == path) found.push_back(component);
    }
  }
  return found;
}

DiskChanges::Answer DiskChanges::Ask(const Component& component, bool saving) {
  for (;;) {
    QMessageBox box(QMessageBox::Question, BoxTitle(), texts_(Text::ReloadQuestion).arg(PathOf(component)),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Retry, &window_);
    box.setTextFormat(Qt::PlainText);
    box.button(QMessageBox::Yes)->setText(texts_(Text::ReloadAnswer));
    box.button(QMessageBox::No)->setText(texts_(Text::KeepAnswer));
    box.button(QMessageBox::Retry)->setText(texts_(Text::CompareAnswer));
    if (saving) box.addButton(QMessageBox::Cancel)->setText(texts_(Text::CancelAnswer));
    box.setEscapeButton(saving ? QMessageBox::Cancel : QMessageBox::No);
    switch (box.exec()) {
      case QMessageBox::Yes:
        return Answer::Reload;
      case QMessageBox::Retry:
        ShowDifference(component);
        break;
      case QMessageBox::No:
        return Answer::Keep;
      default:
        return Answer::Cancel;
    }
  }
}

/// From what is on disk now to what stands here.
void DiskChanges::ShowDifference(const Component& component) {
  try {
    const native::FileBytes disk = native::ReadFileBytes(component.Path());
    if (disk.error != 0)
      return TellError(window_, PathOf(component),
                       texts_.Reason(QString::fromStdString(native::ErrnoText(disk.error))));
    std::u16string difference;
    component.TheModule()->Page().Decode(
        workbench::UnifiedDiff(component.Path(), disk.bytes, component.TheModule()->Compose().bytes), difference);
    DifferenceBox(PathOf(component), ToQString(difference), &window_).exec();
  } catch (const std::exception& error) {
    TellError(window_, texts_(Text::CannotOpen), texts_.Reason(QString::fromUtf8(error.what())));
  }
}

/// Follows what another program wrote. False when the user wants neither that nor a save over it.
bool DiskChanges::FollowFile(const Component& component, bool saving) {
  const auto stamp = FileStamp::Of(component.Path());
  if (!stamp || *stamp == component.Stamp()) return true;  // done together with another component of that file
  const ComponentList twins = OfFile(component.Path());
  const auto settle = [&] {
    for (const auto& twin : twins) twin->SetStamp(*stamp);
  };
  if (HasEdits(twins)) {
    const Answer answer = Ask(component, saving);
    if (answer == Answer::Cancel) return false;
    // Whoever keeps the edits means them: the next save is over what is on disk now.
    if (answer == Answer::Keep) {
      settle();
      return true;
    }
  }
  Reload(component, *stamp);
  return true;
}

void DiskChanges::Reload(const Component& component, const FileStamp& stamp) {
  try {
    workbench::ReloadFileOf(workbench_, component);
    Told.Raise(texts_(Text::Reloaded).arg(PathOf(component)));
  } catch (const std::exception& error) {
    for (const auto& twin : OfFile(component.Path())) twin->SetStamp(stamp);
    TellError(window_, texts_(Text::FileGone).arg(PathOf(component)), texts_.Reason(QString::fromUtf8(error.what())));
  }
}

void DiskChanges::FindClashes() {
  ComponentList found;
  for (const auto& project : workbench_.Projects()) {
    for (const auto& component : project->Components()) {
      if (!component->TheModule() || component->Path().empty() || !component->TheModule()->Modified()) continue;
      const auto stamp = FileStamp::Of(component->Path());
      if (!stamp || *stamp == component->Stamp()) continue;
      if (std::ranges::find(found, component->Path(), &Component::Path) == found.end()) found.push_back(component);
    }
  }
  if (found == clashes_) return;
  clashes_ = std::move(found);
  ClashesChanged.Raise();
}

void DiskChanges::Settle(std::shared_ptr<Component> component, Answer answer) {
  const auto stamp = FileStamp::Of(component->Path());
  if (stamp && answer == Answer::Reload) Reload(*component, *stamp);
  if (stamp && answer == Answer::Keep) {
    for (const auto& twin : OfFile(component->Path())) twin->SetStamp(*stamp);
  }
  Changed.Raise();
  FindClashes();
}

void DiskChanges::Compare(const std::shared_ptr<Component>& component) {
  const FlagScope asking(asking_);
  try {
    const native::FileBytes disk = native::ReadFileBytes(component->Path());
    if (disk.error != 0)
      return TellError(window_, PathOf(*component),
                       texts_.Reason(QString::fromStdString(native::ErrnoText(disk.error))));
    const workbench::Module& module = *component->TheModule();
    const workbench::SourceFile theirs(disk.bytes);
    ThreeWayBox box(PathOf(*component),
                    {CodeOf(*module.Saved(), module.Page()), module.Text(), CodeOf(theirs, module.Page())}, texts_,
                    &window_);
    const ThreeWayBox::Answer answer = box.Ask();
    if (answer == ThreeWayBox::Answer::Reload) Settle(component, Answer::Reload);
    if (answer == ThreeWayBox::Answer::Keep) Settle(component, Answer::Keep);
  } catch (const std::exception& error) {
    TellError(window_, texts_(Text::CannotOpen), texts_.Reason(QString::fromUtf8(error.what())));
  }
}

/// True when the file is there again.
bool DiskChanges::Restore(const Component& component) {
  gone_.insert(component.Path());
  QMessageBox box(QMessageBox::Question, BoxTitle(), texts_(Text::RestoreQuestion).arg(PathOf(component)),
                  QMessageBox::Yes | QMessageBox::Open | QMessageBox::No, &window_);
  box.setTextFormat(Qt::PlainText);
  box.button(QMessageBox::Yes)->setText(texts_(Text::RestoreAnswer));
  box.button(QMessageBox::Open)->setText(texts_(Text::SaveAsAnswer));
  box.button(QMessageBox::No)->setText(texts_(Text::NotNowAnswer));
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  const int answer = box.exec();
  try {
    if (answer == QMessageBox::Open) SaveElsewhere(component);
    if (answer != QMessageBox::Yes) return false;
    workbench::RestoreFileOf(workbench_, component);
  } catch (const std::exception& error) {
    TellError(window_, texts_(Text::CannotSave), texts_.Reason(QString::fromUtf8(error.what())));
    return false;
  }
  gone_.erase(component.Path());
  return true;
}

void DiskChanges::SaveElsewhere(const Component& component) {
  const QString before = PathOf(component);
  const QString path = QFileDialog::getSaveFileName(&window_, texts_(Text::SaveAsTitle), before);
  if (path.isEmpty()) return;
  workbench::SaveFileAs(workbench_, component, path.toStdString());
  Told.Raise(texts_(Text::SavedElsewhere).arg(QDir::toNativeSeparators(path), QFileInfo(before).fileName()));
}

}  // namespace quorvane::desktop

#include <QMessageBox>
#include <QPushButton>
#include <algorithm>

#include "desktop/files/ErrorBox.h"
#include "desktop/files/FileCommands.h"
#include "desktop/platform/CodePageTitles.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/Texts.h"
#include "native/codepages/CodePages.h"
#include "native/codepages/LikelyPages.h"
#include "native/files/FileBytes.h"
#include "workbench/model/Component.h"
#include "workbench/model/HostWindow.h"
#include "workbench/model/Module.h"
#include "workbench/model/Pane.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

namespace {

using workbench::Component;
using workbench::Project;

constexpr std::size_t kSample = 64 * 1024;  // bytes
constexpr double kReadable = 0.7;           // of the characters beyond ASCII; with less nobody reads them

bool IsBeyondAscii(char c) {
  return (c & 0x80) != 0;
}

/// Lines of the modules with something beyond ASCII.
std::string SampleOf(const Project& project) {
  std::string sample;
  for (const auto& component : project.Components()) {
    if (!component->TheModule()) continue;
    const std::string& bytes = component->TheModule()->Saved()->Bytes();
    for (auto at = std::ranges::find_if(bytes, IsBeyondAscii); at != bytes.end() && sample.size() < kSample;) {
      const auto end = std::find(at, bytes.end(), '\n');
      const auto begin = std::find(std::make_reverse_iterator(at), bytes.rend(), '\n').base();
      sample.append(begin, end).push_back('\n');
      at = std::find_if(end, bytes.end(), IsBeyondAscii);
    }
  }
  return sample;
}

bool HoldsBeyondAscii(const std::string& path) {
  const native::FileBytes file = native::ReadFileBytes(path);
  return file.error == 0 && std::ranges::any_of(file.bytes, IsBeyondAscii);
}

}  // namespace

QString FileCommands::PageOf(const EncodingScope& scope) const {
  if (scope.component && scope.component->TheModule())
    return QString::fromStdString(scope.component->TheModule()->Page().Name());
  const CodePage* chosen = encodings_.Of(scope.project ? scope.project->Path() : std::string(), {});
  return QString::fromStdString((chosen != nullptr ? *chosen : workbench_.ThePage()).Name());
}

/// The names of files and projects stand in the lists: where those hold no more than ASCII they are the same in every
/// code page, and only the modules are read anew.
bool FileCommands::Reopen(const EncodingScope& scope, const QString& page) {
  const bool lists = !scope.component && ListsBeyondAscii(scope);
  ComponentList lost = Modified(lists ? nullptr : scope.project.get());
  if (scope.component) std::erase_if(lost, [&](const auto& one) { return one != scope.component; });
  if (!MayClose(lost)) return false;
  encodings_.Choose(scope, page);
  if (lists) {
    OpenAgain();
    return true;
  }
  for (const auto& project : workbench_.Projects()) {
    if (scope.project && project != scope.project) continue;
    for (const auto& component : project->Components()) {
      if (!component->TheModule() || (scope.component && component != scope.component)) continue;
      const CodePage* chosen = encodings_.Of(project->Path(), component->Path());
      component->Reopen(chosen != nullptr ? *chosen : workbench_.ThePage());
    }
  }
  Saved.Raise();
  return true;
}

bool FileCommands::ListsBeyondAscii(const EncodingScope& scope) const {
  if (scope.project) return HoldsBeyondAscii(scope.project->Path());
  return std::ranges::any_of(open_, [](const QString& file) { return HoldsBeyondAscii(file.toStdString()); }) ||
         std::ranges::any_of(workbench_.Projects(),
                             [](const auto& project) { return HoldsBeyondAscii(project->Path()); });
}

/// With the code windows that were open.
void FileCommands::OpenAgain() {
  std::vector<std::string> shown;
  for (const auto& project : workbench_.Projects()) {
    for (const auto& component : project->Components()) {
      if (!component->TheModule()) continue;
      for (const auto& pane : workbench_.TheDesk()->Panes()) {
        if (pane->CodeModule() == component->TheModule() && pane->TheWindow()->Visible())
          shown.push_back(component->Path());
      }
    }
  }
  const QStringList files = open_;
  CloseNow();
  if (!OpenNow(files)) return;
  for (const std::string& path : shown) {
    for (const auto& component : disk_.OfFile(path)) component->TheModule()->CodePane()->Show();
  }
}

/// Asks about each project that nothing was chosen for. True when that opened all files anew.
bool FileCommands::OfferPages() {
  const auto projects = workbench_.Projects();
  for (const auto& project : projects) {
    if (encodings_.Of(project->Path(), {}) != nullptr) continue;
    const std::string sample = SampleOf(*project);
    const std::string now = workbench_.ThePage().Name();
    if (native::Readable(now, sample) >= kReadable) continue;
    std::vector<std::string> likely = native::LikelyPages(sample);
    std::erase(likely, now);
    if (likely.empty()) continue;
    const QString chosen = AskForPage(*project, QString::fromStdString(now), likely);
    const EncodingScope scope{project, nullptr};
    const bool anew = chosen != QString::fromStdString(now) && ListsBeyondAscii(scope);
    if (!Reopen(scope, chosen)) continue;
    if (anew) return true;  // the rest was asked about there
  }
  return false;
}

QString FileCommands::AskForPage(const Project& project, const QString& now, const std::vector<std::string>& likely) {
  const auto title = [this](const QString& page) { return CodePageTitle(page, texts_.Language); };
  QMessageBox box(QMessageBox::Question, BoxTitle(),
                  texts_(Text::PageQuestion).arg(ToQString(project.Name()), title(now)),
                  QMessageBox::Yes | QMessageBox::No, &window_);
  box.setTextFormat(Qt::PlainText);
  constexpr QMessageBox::StandardButton kChoices[] = {QMessageBox::Yes, QMessageBox::YesToAll};
  std::size_t next = 0;
  for (const std::string& page : likely) {
    if (next == std::size(kChoices)) break;
    box.addButton(kChoices[next++])->setText(title(QString::fromStdString(page)));
  }
  box.button(QMessageBox::No)->setText(texts_(Text::PageKeep).arg(now));
  box.setDefaultButton(QMessageBox::Yes);
  box.setEscapeButton(QMessageBox::No);
  const int answer = box.exec();
  for (std::size_t i = 0; i < next; ++i) {
    if (answer == kChoices[i]) return QString::fromStdString(likely[i]);
  }
  return now;
}

}  // namespace quorvane::desktop

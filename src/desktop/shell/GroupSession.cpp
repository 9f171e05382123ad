#include "desktop/shell/GroupSession.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QSettings>
#include <algorithm>

#include "base/Skip.h"
#include "desktop/editor/CodeArea.h"
#include "desktop/editor/CodeWindow.h"
#include "desktop/platform/QtText.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Pane.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

namespace {

const QString kLast = QStringLiteral("session/last");
const QString kOpening = QStringLiteral("session/opening");
const QString kOrder = QStringLiteral("session/order");
constexpr qsizetype kMostGroups = 30;
constexpr qsizetype kMostWindows = 40;
constexpr QChar kPart(u'|');

/// Where the windows of a group are kept.
QString NameOf(const QStringList& files) {
  const QByteArray joined = files.join(QLatin1Char('\n')).toUtf8();
  return QString::fromLatin1(QCryptographicHash::hash(joined, QCryptographicHash::Sha1).toHex());
}

QString KeyOf(const QString& name) {
  return QStringLiteral("session/windows-") + name;
}

}  // namespace

GroupSession::GroupSession(QSettings& settings, workbench::Workbench& workbench, CodeArea& code)
    : settings_(settings), workbench_(workbench), code_(code) {
  soon_.setSingleShot(true);
  soon_.setInterval(0);
  QObject::connect(&soon_, &QTimer::timeout, &soon_, [this] { Note(); });
  changed_ = code_.CurrentChanged.Subscribe([this] { soon_.start(); });
}

/// A line a window: module, selection, and a mark at the one in front.
void GroupSession::Note() {
  if (held_ || files_.isEmpty()) return;
  windows_.clear();
  for (CodeWindow* window : code_.CodeWindows()) {
    const auto component = window->TheComponent();
    if (!component || windows_.size() >= kMostWindows) continue;
    const vbide::Selection at = window->ThePane()->GetSelection();
    QStringList parts{ToQString(component->FullName())};
    for (const std::int32_t number : {at.StartLine, at.StartColumn, at.EndLine, at.EndColumn}) {
      parts << QString::number(number);
    }
    if (window == code_.Current()) parts << QStringLiteral("front");
    windows_ << parts.join(kPart);
  }
}

void GroupSession::Follow(const QStringList& files) {
  soon_.stop();
  if (held_ || files == files_) return;
  Write();
  files_ = files;
  settings_.setValue(kLast, files_);
  windows_ = settings_.value(KeyOf(NameOf(files_))).toStringList();
  if (!files_.isEmpty()) Restore(QStringList(windows_));
}

/// The groups of long ago go.
void GroupSession::Write() {
  if (files_.isEmpty()) return;
  const QString name = NameOf(files_);
  settings_.setValue(KeyOf(name), windows_);
  QStringList order = settings_.value(kOrder).toStringList();
  order.removeAll(name);
  order.prepend(name);
  while (order.size() > kMostGroups) settings_.remove(KeyOf(order.takeLast()));
  settings_.setValue(kOrder, order);
}

void GroupSession::Hold(bool held) {
  if (held && !held_) {
    Note();
    Write();
  }
  held_ = held;
}

workbench::Component* GroupSession::Named(const QString& name) const {
  for (const auto& project : workbench_.Projects()) {
    for (const auto& component : project->Components()) {
      if (component->TheModule() && ToQString(component->FullName()) == name) return component.get();
    }
  }
  return nullptr;
}

void GroupSession::Restore(const QStringList& windows) const {
  std::shared_ptr<vbide::CodePane> front;
  for (const QString& window : windows) {
    const QStringList parts = window.split(kPart);
    if (parts.size() < 5) continue;
    workbench::Component* component = Named(parts[0]);
    if (component == nullptr) continue;  // its project lists it no more
    SkipErrors([&] {
      const auto pane = component->TheModule()->CodePane();
      pane->SetSelection({parts[1].toInt(), parts[2].toInt(), parts[3].toInt(), parts[4].toInt()});
      pane->Show();
      if (parts.size() > 5) front = pane;
    });
  }
  if (front) front->Show();
}

QStringList GroupSession::LastFiles() const {
  const QStringList files = settings_.value(kLast).toStringList();
  const bool there = std::ranges::all_of(files, [](const QString& file) { return QFileInfo::exists(file); });
  return there && !settings_.value(kOpening).toBool() ? files : QStringList();
}

void GroupSession::SetOpening(bool opening) {
  settings_.setValue(kOpening, opening);
  settings_.sync();
}

}  // namespace quorvane::desktop

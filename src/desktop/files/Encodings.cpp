#include "desktop/files/Encodings.h"

#include <QDir>
#include <QSettings>
#include <QUrl>

#include "base/Error.h"
#include "base/Skip.h"
#include "native/codepages/CodePages.h"
#include "workbench/model/Component.h"
#include "workbench/model/Project.h"

namespace quorvane::desktop {

namespace {

const QChar kBetween = QLatin1Char('\n');
const QChar kBehindPage = QLatin1Char('\t');

QString Absolute(const std::string& path) {
  return path.empty() ? QString() : QDir::cleanPath(QDir::current().absoluteFilePath(QString::fromStdString(path)));
}

QString KeyOf(const std::string& project, const std::string& module) {
  if (module.empty()) return Absolute(project);
  return Absolute(project) + kBetween + Absolute(module);
}

/// A path holds what a key of the store cannot.
QString StoreKey(const QString& group) {
  return QLatin1String("encodings/") + QString::fromLatin1(QUrl::toPercentEncoding(group));
}

}  // namespace

void Encodings::SetGroup(const QString& file) {
  group_ = file;
  pages_.clear();
  for (const QString& line : store_.value(StoreKey(group_)).toStringList()) {
    const qsizetype end = line.indexOf(kBehindPage);
    if (end > 0) pages_[line.mid(end + 1)] = line.left(end);
  }
}

const CodePage* Encodings::Of(const std::string& project, const std::string& module) const {
  const CodePage* page = nullptr;
  for (const QString& key : {KeyOf(project, module), KeyOf(project, {}), QString()}) {
    const auto found = pages_.find(key);
    if (found == pages_.end()) continue;
    SkipErrors([&] { page = &native::SharedCodePage(found->toStdString()); });  // the store may hold anything
    if (page != nullptr) return page;
  }
  return nullptr;
}

void Encodings::Choose(const EncodingScope& scope, const QString& page) {
  const std::string project = scope.project ? scope.project->Path() : std::string();
  if (scope.component) {
    pages_[KeyOf(project, scope.component->Path())] = page;
  } else if (scope.project) {
    const QString key = KeyOf(project, {});
    pages_.removeIf([&](const auto& entry) { return entry.key().startsWith(key + kBetween); });
    pages_[key] = page;
  } else {
    pages_.clear();
    pages_[QString()] = page;
  }
  Save();
}

void Encodings::Save() {
  QStringList lines;
  for (auto at = pages_.begin(); at != pages_.end(); ++at) lines << at.value() + kBehindPage + at.key();
  store_.setValue(StoreKey(group_), lines);
}

}  // namespace quorvane::desktop

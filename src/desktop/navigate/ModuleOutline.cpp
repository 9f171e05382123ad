#include "desktop/navigate/ModuleOutline.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <map>

#include "desktop/platform/QtText.h"
#include "platform/CodePage.h"
#include "workbench/model/Module.h"
#include "workbench/text/StatementScanner.h"

namespace quorvane::desktop {

namespace {

using vbide::ComponentType;
using workbench::Module;
using workbench::Procedure;

/// By its folded name.
using Objects = std::map<QString, QString>;

void Add(Objects& objects, const QString& name) {
  if (!name.isEmpty()) objects.try_emplace(name.toCaseFolded(), name);
}

/// What the module itself is to its own events.
QStringList OwnObjects(ComponentType type) {
  switch (type) {
    case ComponentType::ClassModule:
      return {QStringLiteral("Class")};
    case ComponentType::VBForm:
      return {QStringLiteral("Form")};
    case ComponentType::VBMDIForm:
      return {QStringLiteral("MDIForm")};
    case ComponentType::MSForm:
      return {QStringLiteral("UserForm")};
    case ComponentType::PropPage:
      return {QStringLiteral("PropertyPage")};
    case ComponentType::UserControl:
      return {QStringLiteral("UserControl")};
    case ComponentType::DocObject:
      return {QStringLiteral("UserDocument")};
    case ComponentType::ActiveXDesigner:
      return {QStringLiteral("AddinInstance"), QStringLiteral("DataEnvironment"), QStringLiteral("DataReport"),
              QStringLiteral("WebClass"), QStringLiteral("DHTMLPage")};
    case ComponentType::StdModule:
    case ComponentType::ResFile:
    case ComponentType::RelatedDocument:
      break;
  }
  return {};
}

/// `Begin VB.CommandButton cmdOk` in what the file hides above its code; the first one is the form itself.
void AddControls(Objects& objects, const Module& module) {
  std::u16string header;
  module.Page().Decode(module.Saved()->Header(), header);
  static const QRegularExpression kBegin(
      QStringLiteral("^[ \\t]*Begin[ \\t]+[^\\s.]+\\.\\S+[ \\t]+(\\S+)"),
      QRegularExpression::MultilineOption | QRegularExpression::CaseInsensitiveOption);
  bool first = true;
  for (auto at = kBegin.globalMatch(ToQString(header)); at.hasNext();) {
    const QString name = at.next().captured(1);
    if (!first) Add(objects, name);
    first = false;
  }
}

/// `Private WithEvents oOrder As COrder` and `Implements IShape`.
void AddDeclared(Objects& objects, const Module& module) {
  static const QRegularExpression kDeclared(
      QStringLiteral("\\bWithEvents[ \\t]+(\\w+)|^[ \\t]*Implements[ \\t]+(?:\\w+\\.)?(\\w+)"),
      QRegularExpression::MultilineOption | QRegularExpression::CaseInsensitiveOption |
          QRegularExpression::UseUnicodePropertiesOption);
  QString text = ToQString(module.Lines(1, module.CountOfDeclarationLines()));
  text.remove(QLatin1Char('\r'));
  for (auto at = kDeclared.globalMatch(text); at.hasNext();) {
    const QRegularExpressionMatch found = at.next();
    Add(objects, found.captured(1) + found.captured(2));
  }
}

Objects ObjectsOf(const Module& module) {
  Objects objects;
  const auto component = module.Parent();
  if (!component || component->Type() == ComponentType::StdModule) return objects;
  for (const QString& name : OwnObjects(component->Type())) Add(objects, name);
  AddControls(objects, module);
  AddDeclared(objects, module);
  return objects;
}

QString Suffix(vbide::ProcKind kind) {
  switch (kind) {
    case vbide::ProcKind::Get:
      return QStringLiteral(" [PropertyGet]");
    case vbide::ProcKind::Let:
      return QStringLiteral(" [PropertyLet]");
    case vbide::ProcKind::Set:
      return QStringLiteral(" [PropertySet]");
    case vbide::ProcKind::Proc:
      break;
  }
  return {};
}

/// Names of objects may hold underscores themselves: the longest that fits is the one.
ModuleOutline::Entry EntryOf(const Procedure& procedure, const Objects& objects) {
  const QString name = ToQString(procedure.name);
  if (!objects.empty()) {
    for (qsizetype line = name.lastIndexOf(QLatin1Char('_')); line > 0;
         line = name.lastIndexOf(QLatin1Char('_'), line - 1)) {
      const auto object = objects.find(name.left(line).toCaseFolded());
      if (object == objects.end()) continue;
      return {object->second, name.mid(line + 1) + Suffix(procedure.kind), procedure.startLine};
    }
  }
  return {QString(), name + Suffix(procedure.kind), procedure.startLine};
}

}  // namespace

ModuleOutline::ModuleOutline(const Module& module) {
  const Objects objects = ObjectsOf(module);
  entries_.reserve(module.Procedures().size());
  for (const Procedure& procedure : module.Procedures()) entries_.push_back(EntryOf(procedure, objects));
}

const ModuleOutline::Entry* ModuleOutline::AtLine(std::int32_t line) const {
  const auto behind = std::ranges::upper_bound(entries_, line, {}, &Entry::startLine);
  return behind == entries_.begin() ? nullptr : &*(behind - 1);
}

std::int32_t ModuleOutline::HeaderLine(const Module& module, const Procedure& procedure) {
  for (std::int32_t line = procedure.startLine; line < procedure.startLine + procedure.countOfLines; ++line) {
    const std::u16string text = module.Lines(line, 1);
    workbench::StatementScanner scanner(text);
    workbench::Statement statement;
    while (scanner.Next(statement)) {
      if (statement.kind == workbench::Statement::Kind::Header) return line;
    }
  }
  return procedure.startLine;  // its header is broken up by line continuations
}

std::int32_t ModuleOutline::HeaderLine(const Module& module, std::int32_t line) {
  const std::vector<Procedure>& all = module.Procedures();
  const auto behind = std::ranges::upper_bound(all, line, {}, &Procedure::startLine);
  return behind == all.begin() ? line : HeaderLine(module, *(behind - 1));
}

}  // namespace quorvane::desktop

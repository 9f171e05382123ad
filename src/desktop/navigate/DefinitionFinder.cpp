#include "desktop/navigate/DefinitionFinder.h"

#include <QRegularExpression>
#include <QString>
#include <algorithm>

#include "base/Text.h"
#include "desktop/platform/QtText.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"
#include "workbench/text/CaseFold.h"
#include "workbench/text/MemberDeclaration.h"

namespace quorvane::desktop {

// Members come from the scan that saving uses too. It works on bytes; the text goes to it as UTF-8, in which all that
// it looks for is ASCII as in any other page. A module that does not hold the name at all is left out before that.

namespace {

using vbide::ComponentType;
using workbench::Component;
using workbench::MemberDeclaration;
using workbench::MemberKind;
using workbench::Module;

bool SameName(std::u16string_view a, std::u16string_view b) {
  return std::ranges::equal(a, b, {}, workbench::CaseFold::Of, workbench::CaseFold::Of);
}

std::u16string_view WithoutBrackets(std::u16string_view name) {
  return name.size() > 2 && name.front() == u'[' ? name.substr(1, name.size() - 2) : name;
}

/// 1-based column of a name, as a whole word, in one of the lines; the first line and column where it is not found.
Definition PlaceIn(const std::shared_ptr<Component>& component, std::int32_t first, std::int32_t last,
                   std::u16string_view name) {
  const auto length = static_cast<std::int32_t>(name.size());
  for (std::int32_t line = first; line <= last; ++line) {
    const std::u16string text = component->TheModule()->Lines(line, 1);
    for (std::size_t at = 0; at + name.size() <= text.size(); ++at) {
      if (at > 0 && workbench::IsWordUnit(text[at - 1])) continue;
      const std::size_t end = at + name.size();
      if (end < text.size() && workbench::IsWordUnit(text[end])) continue;
      if (SameName(std::u16string_view(text).substr(at, name.size()), name))
        return {component, line, static_cast<std::int32_t>(at) + 1, length};
    }
  }
  return {component, first, 1, length};
}

/// A line without its comment, with blanks for its string literals.
QString Bare(const std::u16string& line) {
  QString bare = ToQString(line);
  bool quoted = false;
  for (qsizetype i = 0; i < bare.size(); ++i) {
    if (bare[i] == QLatin1Char('"')) quoted = !quoted;
    if (!quoted && bare[i] == QLatin1Char('\'')) return bare.left(i);
    if (quoted) bare[i] = QLatin1Char(' ');
  }
  return bare;
}

/// Whether a statement of a procedure, or its header, declares the name.
bool DeclaresLocal(const QString& line, const QString& name) {
  static const QRegularExpression kDeclares(
      QStringLiteral(
          "^\\s*(?:\\d+\\s+)?(?:Dim|Static|Const|ReDim)\\b(.*)$|\\b(?:Sub|Function|Property)\\b[^(]*\\((.*)$"),
      QRegularExpression::CaseInsensitiveOption);
  for (const QString& statement : line.split(QLatin1Char(':'))) {
    const QRegularExpressionMatch found = kDeclares.match(statement);
    if (!found.hasMatch()) continue;
    for (const QString& one : (found.captured(1) + found.captured(2)).split(QLatin1Char(','))) {
      static const QRegularExpression kName(
          QStringLiteral("^\\s*(?:(?:Optional|ByVal|ByRef|ParamArray|Preserve|WithEvents)\\s+)*\\[?(\\w+)"),
          QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
      if (kName.match(one).captured(1).compare(name, Qt::CaseInsensitive) == 0) return true;
    }
  }
  return false;
}

/// Members of other modules are seen unless they say otherwise; a constant is seen only where it says so.
bool IsHidden(const MemberDeclaration& member, std::string_view statement) {
  const std::size_t begin = statement.find_first_not_of(" \t");
  const std::string word = workbench::FoldName(
      begin == statement.npos ? std::string_view()
                              : statement.substr(begin, statement.find_first_of(" \t", begin) - begin));
  return word == "private" || word == "dim" || (member.kind == MemberKind::Const && word == "const");
}

bool IsProperty(MemberKind kind) {
  return kind == MemberKind::PropertyGet || kind == MemberKind::PropertyLet || kind == MemberKind::PropertySet;
}

/// The first line of the constant of an enumeration that begins with this name; 0-based, -1 for none.
std::int32_t LineOfConstant(const std::vector<std::string_view>& lines, const MemberDeclaration& enumeration,
                            const std::string& folded) {
  for (auto i = static_cast<std::size_t>(enumeration.last) + 1; i < lines.size(); ++i) {
    const std::size_t begin = lines[i].find_first_not_of(" \t");
    if (begin == std::string_view::npos) continue;
    const std::string_view rest = lines[i].substr(begin);
    const std::string word = workbench::FoldName(rest.substr(0, rest.find_first_of(" \t='")));
    if (word == "end") break;
    if (word == folded) return static_cast<std::int32_t>(i);
  }
  return -1;
}

}  // namespace

void DefinitionFinder::FindLocal(const ComponentPtr& component, std::int32_t line, std::u16string_view name,
                                 Found& found) {
  const auto& procedures = component->TheModule()->Procedures();
  const auto behind = std::ranges::upper_bound(procedures, line, {}, &workbench::Procedure::startLine);
  if (behind == procedures.begin()) return;
  const workbench::Procedure& procedure = *(behind - 1);
  const QString wanted = ToQString(name);
  const std::int32_t end = procedure.startLine + procedure.countOfLines;
  QString statement;
  std::int32_t first = 0;
  for (std::int32_t at = procedure.startLine; at < end; ++at) {
    QString bare = Bare(component->TheModule()->Lines(at, 1));
    if (statement.isEmpty()) first = at;
    const bool continued = bare.endsWith(QLatin1String(" _")) || bare.endsWith(QLatin1String("\t_"));
    if (continued) bare.chop(1);
    statement += bare;
    if (continued && at + 1 < end) continue;
    if (statement.contains(wanted, Qt::CaseInsensitive) && DeclaresLocal(statement, wanted)) {
      found.push_back(PlaceIn(component, first, at, name));
      return;
    }
    statement.clear();
  }
}

void DefinitionFinder::FindMembers(const ComponentPtr& component, std::u16string_view name, bool hiddenToo,
                                   Found& found) {
  const auto& module = component->TheModule();
  if (!module) return;
  if (SameName(component->Name(), name) && !hiddenToo) found.push_back({component, 1, 1, 0});
  if (module->SurelyLacks(name, true, false, false)) return;
  const std::string text = ToUtf8(module->Text());
  std::vector<std::string_view> lines;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find("\r\n", begin), text.size());
    lines.push_back(std::string_view(text).substr(begin, end - begin));
    begin = end + 2;
  }
  const std::string folded = workbench::FoldName(ToUtf8(name));
  bool property = false;
  for (const MemberDeclaration& member : workbench::ScanDeclarations(lines)) {
    if (!hiddenToo && IsHidden(member, lines[static_cast<std::size_t>(member.first)])) continue;
    std::int32_t first = -1, last = -1;
    if (SameName(WithoutBrackets(FromUtf8(member.name)), name)) {
      if (IsProperty(member.kind) && property) continue;  // the first of Get, Let and Set stands for all
      property = property || IsProperty(member.kind);
      first = member.first;
      last = member.last;
    } else if (member.kind == MemberKind::Enum) {
      first = last = LineOfConstant(lines, member, folded);
    }
    if (first >= 0) found.push_back(PlaceIn(component, first + 1, last + 1, name));
  }
}

DefinitionFinder::ComponentPtr DefinitionFinder::Shared(const Component& component) const {
  for (const auto& project : workbench_.Projects()) {
    for (const ComponentPtr& one : project->Components()) {
      if (one.get() == &component) return one;
    }
  }
  return nullptr;
}

/// Those of the same project, or those of all others; the module itself is none of them.
std::vector<DefinitionFinder::ComponentPtr> DefinitionFinder::Others(const ComponentPtr& from, bool sameProject) const {
  std::vector<ComponentPtr> others;
  for (const auto& project : workbench_.Projects()) {
    const auto& components = project->Components();
    if ((std::ranges::find(components, from) != components.end()) != sameProject) continue;
    std::ranges::copy_if(components, std::back_inserter(others),
                         [&](const ComponentPtr& one) { return one != from && one->TheModule(); });
  }
  return others;
}

DefinitionFinder::ComponentPtr DefinitionFinder::Named(const ComponentPtr& from, std::u16string_view name) const {
  if (SameName(name, u"Me")) return from;
  for (const bool sameProject : {true, false}) {
    for (const ComponentPtr& one : Others(from, sameProject)) {
      if (SameName(one->Name(), name)) return one;
    }
  }
  return SameName(from->Name(), name) ? from : nullptr;
}

/// The members of the module before the dot, where that is one; else those of all classes, of the project first.
DefinitionFinder::Found DefinitionFinder::FindOwned(const ComponentPtr& from, std::u16string_view name,
                                                    std::u16string_view owner) const {
  Found found;
  if (const ComponentPtr component = owner.empty() ? nullptr : Named(from, owner)) {
    FindMembers(component, name, true, found);
    return found;
  }
  for (const bool sameProject : {true, false}) {
    for (const ComponentPtr& one : Others(from, sameProject)) {
      if (one->Type() != ComponentType::StdModule) FindMembers(one, name, false, found);
    }
    if (!found.empty()) break;
  }
  return found;
}

std::vector<Definition> DefinitionFinder::Find(const Component& from, std::int32_t line, std::u16string_view name,
                                               std::u16string_view owner, bool dotted) const {
  Found found;
  const ComponentPtr component = Shared(from);
  if (!component || !component->TheModule() || name.empty()) return found;
  if (dotted) found = FindOwned(component, name, owner);
  if (found.empty() && !dotted) FindLocal(component, line, name, found);
  if (found.empty()) FindMembers(component, name, true, found);
  for (const bool sameProject : {true, false}) {
    if (!found.empty()) break;
    for (const ComponentPtr& one : Others(component, sameProject)) FindMembers(one, name, false, found);
  }
  if (found.empty() && SameName(component->Name(), name)) found.push_back({component, 1, 1, 0});
  return found;
}

}  // namespace quorvane::desktop

#include "workbench/project/FileKind.h"

#include <algorithm>
#include <array>

namespace quorvane::workbench {

namespace {

using vbide::ComponentType;

constexpr char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool StartsWithNoCase(std::string_view text, std::string_view lowerStart) {
  return text.size() >= lowerStart.size() &&
         std::ranges::equal(text.substr(0, lowerStart.size()), lowerStart, {}, Lower);
}

struct KnownExtension {
  std::string_view extension;
  FileKind kind;
};

constexpr std::array kExtensions = {
    KnownExtension{".vbg", {FileKind::Role::ProjectGroup}},
    KnownExtension{".vbp", {FileKind::Role::Project}},
    KnownExtension{".bas", {FileKind::Role::Component, ComponentType::StdModule}},
    KnownExtension{".cls", {FileKind::Role::Component, ComponentType::ClassModule}},
    KnownExtension{".frm", {FileKind::Role::Component, ComponentType::VBForm}},
    KnownExtension{".ctl", {FileKind::Role::Component, ComponentType::UserControl}},
    KnownExtension{".pag", {FileKind::Role::Component, ComponentType::PropPage}},
    KnownExtension{".dob", {FileKind::Role::Component, ComponentType::DocObject}},
    KnownExtension{".dsr", {FileKind::Role::Component, ComponentType::ActiveXDesigner}},
    KnownExtension{".res", {FileKind::Role::Component, ComponentType::ResFile}},
};

struct KnownObject {
  std::string_view start;
  ComponentType type;
};

constexpr std::array kObjects = {
    KnownObject{"vb.form ", ComponentType::VBForm},
    KnownObject{"vb.mdiform ", ComponentType::VBMDIForm},
    KnownObject{"vb.usercontrol ", ComponentType::UserControl},
    KnownObject{"vb.propertypage ", ComponentType::PropPage},
    KnownObject{"vb.userdocument ", ComponentType::DocObject},
    KnownObject{"{", ComponentType::MSForm},
};

/// Takes the first line off `text`; blanks before it are gone.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  return line;
}

}  // namespace

std::optional<FileKind> FileKind::OfName(std::string_view path) {
  if (path.size() < 4) return {};
  const std::string_view extension = path.substr(path.size() - 4);
  for (const KnownExtension& known : kExtensions) {
    if (StartsWithNoCase(extension, known.extension)) return known.kind;
  }
  return {};
}

FileKind FileKind::OfContent(std::string_view bytes) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  std::string_view rest = bytes;
  std::string_view first;
  while (!rest.empty() && first.empty()) first = TakeLine(rest);
  if (StartsWithNoCase(first, "vbgroup ")) return {Role::ProjectGroup};
  if (StartsWithNoCase(first, "type=")) return {Role::Project};
  if (!StartsWithNoCase(first, "version ")) return {Role::Component, ComponentType::StdModule};
  if (first.find("CLASS") != std::string_view::npos) return {Role::Component, ComponentType::ClassModule};
  return {Role::Component, TypeOfObject(bytes).value_or(ComponentType::StdModule)};
}

std::optional<vbide::ComponentType> TypeOfObject(std::string_view header) {
  while (!header.empty()) {
    std::string_view line = TakeLine(header);
    if (!StartsWithNoCase(line, "begin ")) continue;
    line.remove_prefix(std::min(line.find_first_not_of(" \t", 6), line.size()));
    for (const KnownObject& known : kObjects) {
      if (StartsWithNoCase(line, known.start)) return known.type;
    }
    return {};
  }
  return {};
}

}  // namespace quorvane::workbench

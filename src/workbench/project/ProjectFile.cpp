#include "workbench/project/ProjectFile.h"

#include <utility>

#include "base/Text.h"
#include "workbench/project/KeyLines.h"

namespace quorvane::workbench {

namespace {

using vbide::ComponentType;

struct KnownKey {
  std::u16string_view key;
  ComponentType type;
  bool named;  ///< the value is `name; path`
};

constexpr KnownKey kKeys[] = {
    {u"Module", ComponentType::StdModule, true},
    {u"Class", ComponentType::ClassModule, true},
    {u"Form", ComponentType::VBForm, false},
    {u"UserControl", ComponentType::UserControl, false},
    {u"PropertyPage", ComponentType::PropPage, false},
    {u"UserDocument", ComponentType::DocObject, false},
    {u"Designer", ComponentType::ActiveXDesigner, false},
    {u"RelatedDoc", ComponentType::RelatedDocument, false},
    {u"ResFile32", ComponentType::ResFile, false},
};

const KnownKey* Look(std::u16string_view key) {
  for (const KnownKey& known : kKeys) {
    if (EqualsNoCaseAscii(known.key, key)) return &known;
  }
  return nullptr;
}

ProjectFile::Entry ToEntry(const KnownKey& known, std::u16string_view value) {
  ProjectFile::Entry entry;
  entry.type = known.type;
  const std::size_t semicolon = known.named ? value.find(u';') : std::u16string_view::npos;
  if (semicolon != std::u16string_view::npos) {
    entry.name = Unquoted(value.substr(0, semicolon));
    value.remove_prefix(semicolon + 1);
  }
  entry.path = Unquoted(value);
  return entry;
}

}  // namespace

ProjectFile ProjectFile::Parse(std::string_view bytes, const CodePage& page) {
  ProjectFile file;
  for (const KeyLine& line : ReadKeyLines(bytes, page)) {
    if (EqualsNoCaseAscii(line.key, u"Name")) {
      if (file.name.empty()) file.name = Unquoted(line.value);
    } else if (const KnownKey* known = Look(line.key)) {
      Entry entry = ToEntry(*known, line.value);
      if (!entry.path.empty()) file.entries.push_back(std::move(entry));
    }
  }
  return file;
}

}  // namespace quorvane::workbench

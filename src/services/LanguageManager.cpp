#include "services/LanguageManager.h"

#include "base/Checked.h"
#include "base/Error.h"
#include "base/Text.h"
#include "host/Globals.h"
#include "resources/StringTable.h"

namespace quorvane {

namespace {
constexpr std::int32_t kResourceNotFound = 326;
}

std::u16string LanguageManager::GetString(std::int32_t id, const std::vector<std::u16string>& args) const {
  const std::int32_t entry = Checked32(std::int64_t{StringBase()} + id);
  const auto text = LoadResString(entry);
  if (!text) throw Error(kResourceNotFound, u"Resource with identifier '" + ToText(entry) + u"' not found");
  return Globals::ReplaceArgs(*text, args);
}

std::int32_t LanguageManager::StringBase() const {
  return Checked32(std::int64_t{Language} * kEntriesPerLanguage);
}

}  // namespace quorvane

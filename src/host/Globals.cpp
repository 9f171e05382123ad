#include "host/Globals.h"

#include "base/Text.h"
#include "host/Utilities.h"
#include "host/VBIDE.h"
#include "services/ErrorManager.h"
#include "services/GlobalSetting.h"
#include "services/LanguageManager.h"

namespace quorvane::Globals {

std::shared_ptr<vbide::VBE> gobjVBE;
std::shared_ptr<Utilities> gobjUtilities;
std::shared_ptr<ErrorManager> gobjErrorManager;
std::shared_ptr<GlobalSetting> gobjSetting;

namespace {
std::unique_ptr<LanguageManager> gobjLanguage;
}

LanguageManager& Language() {
  if (!gobjLanguage) gobjLanguage = std::make_unique<LanguageManager>();
  return *gobjLanguage;
}

std::u16string ReplaceArgs(std::u16string_view src, const std::vector<std::u16string>& args) {
  std::u16string text(src);
  for (std::size_t i = args.size(); i-- > 0;) {
    text = ReplaceAll(text, u"%" + ToText(static_cast<std::int64_t>(i)), args[i]);
  }
  return text;
}

}  // namespace quorvane::Globals

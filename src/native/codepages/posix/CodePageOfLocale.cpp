#include <cstdlib>
#include <string_view>

#include "native/codepages/CodePages.h"

namespace quorvane::native {

namespace {

struct Language {
  std::string_view Code;
  std::string_view Page;
};

/// Languages by code page; a language that is not listed has 1252.
constexpr Language kLanguages[] = {
    {"ja", "932"},  {"ko", "949"},  {"th", "874"},  {"pl", "1250"}, {"cs", "1250"}, {"sk", "1250"}, {"hu", "1250"},
    {"ro", "1250"}, {"hr", "1250"}, {"sl", "1250"}, {"sq", "1250"}, {"bs", "1250"}, {"ru", "1251"}, {"uk", "1251"},
    {"bg", "1251"}, {"be", "1251"}, {"mk", "1251"}, {"sr", "1251"}, {"kk", "1251"}, {"el", "1253"}, {"tr", "1254"},
    {"az", "1254"}, {"he", "1255"}, {"iw", "1255"}, {"yi", "1255"}, {"ar", "1256"}, {"fa", "1256"}, {"ur", "1256"},
    {"et", "1257"}, {"lv", "1257"}, {"lt", "1257"}, {"vi", "1258"},
};

std::string_view LocaleName() {
  for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

}  // namespace

/// The charset of the locale plays no part: it is that of the terminal, not of the files.
std::string CodePageOfLocale() {
  const std::string_view locale = LocaleName();
  const std::string_view place = locale.substr(0, locale.find_first_of(".@"));
  const std::string_view language = place.substr(0, place.find('_'));
  if (language == "zh") {
    const std::string_view region = place.substr(language.size());
    const bool traditional = region.starts_with("_TW") || region.starts_with("_HK") || region.starts_with("_MO");
    return traditional ? "950" : "936";
  }
  for (const Language& entry : kLanguages) {
    if (entry.Code == language) return std::string(entry.Page);
  }
  return "1252";
}

}  // namespace quorvane::native

#include "native/codepages/CodePages.h"

#include <map>
#include <mutex>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "native/codepages/DoubleByteCodePage.h"
#include "native/codepages/SingleByteCodePage.h"
#include "native/codepages/Utf8CodePage.h"

namespace quorvane::native {

namespace {

struct Alias {
  std::string_view Written;  ///< without prefix, "-" and "_", in lower case
  std::string_view Name;     ///< the usual spelling
};

constexpr Alias kAliases[] = {
    {"utf8", "UTF-8"},   {"65001", "UTF-8"},    {"932", "932"},   {"sjis", "932"},   {"shiftjis", "932"},
    {"31j", "932"},      {"936", "936"},        {"gbk", "936"},   {"gb2312", "936"}, {"949", "949"},
    {"uhc", "949"},      {"euckr", "949"},      {"950", "950"},   {"big5", "950"},   {"874", "874"},
    {"1250", "1250"},    {"1251", "1251"},      {"1252", "1252"}, {"1253", "1253"},  {"1254", "1254"},
    {"1255", "1255"},    {"1256", "1256"},      {"1257", "1257"}, {"1258", "1258"},  {"28591", "28591"},
    {"latin1", "28591"}, {"iso88591", "28591"},
};

std::string Simplified(std::string_view name) {
  std::string plain;
  for (const char c : name) {
    if (c != '-' && c != '_' && c != ' ') plain.push_back(c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c);
  }
  for (const std::string_view prefix : {"windows", "cp", "ms"}) {
    if (plain.starts_with(prefix)) plain.erase(0, prefix.size());
  }
  return plain;
}

[[noreturn]] void RaiseUnknown(std::string_view name) {
  RaiseError(ErrorNumber::InvalidProcedureCall,
             u"Unknown code page: " + FromUtf8(name) +
                 u" (known: 874, 932, 936, 949, 950, 1250 to 1258, 28591, UTF-8 and their usual other names)");
}

}  // namespace

std::unique_ptr<CodePage> NewCodePage(std::string_view name) {
  using Page = DoubleByteCodePage::Page;
  const std::string plain = Simplified(name);
  for (const Alias& alias : kAliases) {
    if (alias.Written != plain) continue;
    if (alias.Name == "UTF-8") return std::make_unique<Utf8CodePage>();
    for (const Page page : {Page::Japanese, Page::SimplifiedChinese, Page::Korean, Page::TraditionalChinese}) {
      if (alias.Name == std::to_string(static_cast<int>(page))) return std::make_unique<DoubleByteCodePage>(page);
    }
    const std::string usual(alias.Name);
    return std::make_unique<SingleByteCodePage>(usual, std::stoi(usual));
  }
  RaiseUnknown(name);
}

const CodePage& SharedCodePage(std::string_view name) {
  static std::mutex guard;
  static std::map<std::string, std::unique_ptr<CodePage>> pages;
  std::unique_ptr<CodePage> made = NewCodePage(name);
  const std::lock_guard lock(guard);
  return *pages.try_emplace(made->Name(), std::move(made)).first->second;
}

}  // namespace quorvane::native

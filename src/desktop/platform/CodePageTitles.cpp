#include "desktop/platform/CodePageTitles.h"

namespace quorvane::desktop {

namespace {

struct Title {
  const char* name;
  const char16_t* chinese;
  const char16_t* english;
};

constexpr Title kTitles[] = {
    {"1252", u"西欧", u"Western European"},
    {"28591", u"西欧 (ISO)", u"Western European (ISO)"},
    {"1250", u"中欧", u"Central European"},
    {"1251", u"西里尔文", u"Cyrillic"},
    {"1253", u"希腊文", u"Greek"},
    {"1254", u"土耳其文", u"Turkish"},
    {"1255", u"希伯来文", u"Hebrew"},
    {"1256", u"阿拉伯文", u"Arabic"},
    {"1257", u"波罗的海文", u"Baltic"},
    {"1258", u"越南文", u"Vietnamese"},
    {"874", u"泰文", u"Thai"},
    {"932", u"日文", u"Japanese"},
    {"936", u"简体中文", u"Chinese, simplified"},
    {"949", u"韩文", u"Korean"},
    {"950", u"繁体中文", u"Chinese, traditional"},
    {"UTF-8", u"Unicode", u"Unicode"},
};

}  // namespace

QStringList CodePageNames() {
  QStringList names;
  for (const Title& title : kTitles) names << QString::fromLatin1(title.name);
  return names;
}

QString CodePageTitle(const QString& name, std::int32_t language) {
  for (const Title& title : kTitles) {
    if (name != QLatin1String(title.name)) continue;
    return name + QLatin1String("  ") + QString::fromUtf16(language == 0 ? title.chinese : title.english);
  }
  return name;
}

}  // namespace quorvane::desktop

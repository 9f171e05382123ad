#include "addin/settings/StoredSection.h"

#include <utility>

#include "base/Convert.h"
#include "base/Error.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "platform/Clock.h"
#include "platform/Platform.h"
#include "platform/SettingsStore.h"

namespace quorvane {

namespace {

constexpr std::size_t kShownUnits = 40;  // of a damaged value

template <class Convert>
auto Converted(std::u16string_view key, const std::u16string& text, Convert convert) {
  try {
    return convert(text);
  } catch (const Error& e) {
    throw Error(e.Number, e.Description + u": " + std::u16string(key) + u" = \"" + text.substr(0, kShownUnits) + u"\"");
  }
}

}  // namespace

StoredSection::StoredSection(std::u16string appname, std::u16string section)
    : appname_(std::move(appname)), section_(std::move(section)) {}

std::u16string StoredSection::Text(std::u16string_view key, std::u16string_view defaultValue) const {
  return ThePlatform().Settings().GetSetting(appname_, section_, key, defaultValue);
}

std::int32_t StoredSection::Long(std::u16string_view key, std::int32_t defaultValue) const {
  return Converted(key, Text(key, ToText(defaultValue)), ToLong);
}

std::int16_t StoredSection::Integer(std::u16string_view key, std::int16_t defaultValue) const {
  return Converted(key, Text(key, ToText(defaultValue)), ToInteger);
}

bool StoredSection::Boolean(std::u16string_view key, bool defaultValue) const {
  return Converted(key, Text(key, BooleanText(defaultValue)), ToBoolean);
}

DateTime StoredSection::Date(std::u16string_view key, const DateTime& defaultValue) const {
  const DateFormat format = ThePlatform().TheClock().Format();
  return Converted(key, Text(key, DateText(defaultValue, format)),
                   [&](const std::u16string& text) { return ParseDate(text, format); });
}

void StoredSection::Write(std::u16string_view key, std::u16string_view value) const {
  SkipErrors([&] { ThePlatform().Settings().SaveSetting(appname_, section_, key, value); });
}

}  // namespace quorvane

#include "addin/core/LanguageManager.h"

#include <limits>
#include <memory>

#include "addin/core/Globals.h"
#include "addin/core/StringTable.h"
#include "base/Convert.h"
#include "base/Error.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "platform/App.h"
#include "platform/Platform.h"
#include "platform/PrivateProfile.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"

namespace quorvane {

namespace {

constexpr std::u16string_view kSection = u"Language Setting";
constexpr std::u16string_view kKey = u"Language";

std::int64_t EntryNumber(std::int32_t language, StringId id) {
  return std::int64_t{language} * kEntriesPerLanguage + static_cast<std::int32_t>(id);
}

std::u16string ConfigPath() {
  return ThePlatform().TheApp().FileBeside(u"config.ini");
}

std::u16string StoredText() {
  if (ThePlatform().Profile() == nullptr) return u"0";
  IniFile ini;
  ini.SetINIFileName(ConfigPath());
  return ini.GetIniKey(kSection, kKey, u"0");
}

}  // namespace

LanguageManager::LanguageManager() {
  if (ThePlatform().Profile() == nullptr) return;
  Language = Stored();
  mobjIni.emplace();
  mobjIni->SetINIFileName(ConfigPath());
}

LanguageManager::~LanguageManager() {
  if (!mobjIni) return;
  SkipErrors([&] { mobjIni->WriteIniKey(kSection, kKey, ToText(Language)); });
}

std::u16string LanguageManager::GetString(StringId id, const std::vector<std::u16string>& args) const {
  const auto text = Entry(id);
  if (!text) {
    RaiseError(ErrorNumber::ResourceNotFound,
               u"Resource with identifier '" + ToText(EntryNumber(Language, id)) + u"' not found");
  }
  return Globals::ReplaceArgs(*text, args);
}

std::optional<std::u16string_view> LanguageManager::Entry(StringId id) const noexcept {
  const std::int64_t entry = EntryNumber(Language, id);  // the file may hold any number as language
  if (entry < 0 || entry > std::numeric_limits<std::int32_t>::max()) return {};
  return LoadResString(static_cast<std::int32_t>(entry));
}

void LanguageManager::UpdateAllUI() const {
  const auto open = forms::TheForms().Open();
  for (const std::shared_ptr<forms::Form>& form : open) UpdateUI(form.get());
  Changed.Raise();
}

std::int32_t LanguageManager::Stored() {
  try {
    return ToLong(StoredText());
  } catch (const Error& e) {
    throw Error(e.Number, e.Description + u": " + StoredWords());
  }
}

std::u16string LanguageManager::StoredWords() {
  return std::u16string(kKey) + u" = \"" + StoredText() + u"\" (" + StoredIn() + u")";
}

std::u16string LanguageManager::StoredIn() {
  PrivateProfile* profile = ThePlatform().Profile();
  return profile != nullptr ? profile->PlaceOf(ConfigPath()) : std::u16string();
}

std::u16string LanguageManager::Replace(std::int32_t language) {
  PrivateProfile& profile = Deref(ThePlatform().Profile());
  const std::u16string copy = profile.KeepCopy(ConfigPath());
  IniFile ini;
  ini.SetINIFileName(ConfigPath());
  ini.WriteIniKey(kSection, kKey, ToText(language));
  if (StoredText() != ToText(language)) {
    RaiseError(ErrorNumber::PathFileAccess, u"Path/File access error: " + profile.PlaceOf(ConfigPath()));
  }
  return copy;
}

std::u16string TextAtAnyRate(StringId id, const std::vector<std::u16string>& args) {
  std::optional<std::u16string_view> words;
  SkipErrors([&] { words = Globals::Language().Entry(id); });
  if (!words) words = LoadResString(kEntriesPerLanguage + static_cast<std::int32_t>(id));
  return Globals::ReplaceArgs(words.value_or(u""), args);
}

}  // namespace quorvane

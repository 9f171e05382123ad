#include "addin/core/IniFile.h"

#include <optional>

#include "base/Error.h"
#include "platform/CodePage.h"
#include "platform/Platform.h"
#include "platform/PrivateProfile.h"

namespace quorvane {

namespace {

constexpr std::size_t kBufferSize = 1024;

PrivateProfile& Profile() {
  PrivateProfile* profile = ThePlatform().Profile();
  if (profile == nullptr) {
    RaiseError(ErrorNumber::ActionNotSupported, ErrorText(ErrorNumber::ActionNotSupported) + u": INI files");
  }
  return *profile;
}

std::string Narrow(std::u16string_view text) {
  return ThePlatform().AnsiCodePage().EncodedOrAsked(text);
}

std::string TrimSpaces(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

void IniFile::WriteIniKey(std::u16string_view strSection, std::u16string_view strKey, std::u16string_view strValue) {
  Profile().Write(Narrow(strSection), Narrow(strKey), Narrow(strValue), mstrFileName);
}

std::u16string IniFile::GetIniKey(std::u16string_view strSection, std::u16string_view strKey,
                                  std::u16string_view strDefault) const {
  std::string buffer(kBufferSize, ' ');
  Profile().Read(Narrow(strSection), Narrow(strKey), Narrow(strDefault), buffer.data(), buffer.size(), mstrFileName);
  buffer = TrimSpaces(buffer);
  std::erase(buffer, '\0');
  std::u16string text;
  ThePlatform().AnsiCodePage().Decode(buffer, text);
  return text;
}

bool IniFile::DelIniKey(std::u16string_view SectionName, std::u16string_view KeyWord) {
  return Profile().Write(Narrow(SectionName), Narrow(KeyWord), std::nullopt, mstrFileName);
}

bool IniFile::DelIniSec(std::u16string_view SectionName) {
  return Profile().Write(Narrow(SectionName), std::nullopt, "", mstrFileName);
}

}  // namespace quorvane

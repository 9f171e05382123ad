// An INI file and a settings file of any bytes: read, changed, read again.
#include "Input.h"
#include "base/Error.h"
#include "native/settings/FileSettingsStore.h"
#include "native/settings/IniText.h"
#include "support/TempFolder.h"

using namespace quorvane;

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  native::IniText ini(text);
  fuzz::Expect(ini.Bytes() == text);
  ini.Set("Section", "Key", "value");
  fuzz::Expect(native::IniText(ini.Bytes()).Get("section", "KEY") == "value");
  ini.RemoveKey("S", "k");
  ini.RemoveSection("T");

  const test::TempFolder folder;  // a new one: a file that is no store leaves a copy
  const std::string path = folder.Write("settings", text);
  try {
    native::FileSettingsStore(path).GetSetting(u"App", u"S", u"k", u"none");
  } catch (const Error&) {
  }
  native::FileSettingsStore store(path);
  store.SaveSetting(u"App", u"S", u"k", u"one\r\ntwo");
  store.Commit();
  fuzz::Expect(native::FileSettingsStore(path).GetSetting(u"App", u"S", u"k", u"none") == u"one\r\ntwo");
  return 0;
}

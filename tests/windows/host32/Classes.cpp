#include "windows/host32/Classes.h"

#include "windows/com/ErrorTranslation.h"
#include "windows/com/RegistryKey.h"
#include "windows/com/WideText.h"

namespace quorvane::container {

namespace {

void ForTheMachine(const std::u16string& key, const std::u16string& value) {
  const std::u16string path = u"Software\\Classes\\" + key;
  const std::u16string text = com::ReadText(HKEY_CURRENT_USER, path, value);
  if (!text.empty()) com::WriteText(HKEY_LOCAL_MACHINE, path, value, text);
}

}  // namespace

com::ComPtr<IUnknown> MakeByProgId(const std::u16string& progId) {
  CLSID classId{};
  HRESULT found = CLSIDFromProgID(com::Wide(progId), &classId);
  if (FAILED(found)) {
    const std::u16string id = com::ReadText(HKEY_CURRENT_USER, u"Software\\Classes\\" + progId + u"\\CLSID", u"");
    ForTheMachine(progId + u"\\CLSID", u"");
    ForTheMachine(u"CLSID\\" + id + u"\\InprocServer32", u"");
    ForTheMachine(u"CLSID\\" + id + u"\\InprocServer32", u"ThreadingModel");
    found = CLSIDFromProgID(com::Wide(progId), &classId);
  }
  com::Check(found);
  com::ComPtr<IUnknown> object;
  com::Check(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.PutVoid()));
  return object;
}

}  // namespace quorvane::container

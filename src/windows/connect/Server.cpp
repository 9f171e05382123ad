// What COM calls of this file. The classes are made by hand; registration is the user's own.
#include "addin/core/RegistrationData.h"
#include "base/Skip.h"
#include "vbide/VBIDE.h"
#include "windows/com/AddInObject.h"
#include "windows/com/ClassFactory.h"
#include "windows/com/Entry.h"
#include "windows/com/ErrorTranslation.h"
#include "windows/com/ModuleReference.h"
#include "windows/com/Registration.h"
#include "windows/com/WideText.h"
#include "windows/connect/Code.h"
#include "windows/connect/DocumentClass.h"
#include "windows/platform/OwnFile.h"

namespace quorvane::windows {

namespace {

/// The add-in as the host tells it what happens, by one of the objects that it has made. An object that was refused the
/// connection has none to end; one that the host lets go while it is connected ends it.
class Listener final : public com::AddInListener {
 public:
  ~Listener() override {
    const com::Entry entry;
    if (connected_) SkipErrors([this] { OnDisconnection(kHostShutdown); });
  }

  void OnConnection(const com::ComPtr<IDispatch>& application, std::int32_t mode,
                    const com::ComPtr<IDispatch>& addIn) override {
    Code::The().OnConnection(application, mode, addIn);
    connected_ = true;
  }
  void OnDisconnection(std::int32_t mode) override {
    if (!connected_) return;
    Code::The().OnDisconnection(mode);  // refused on another thread
    connected_ = false;
  }

 private:
  static constexpr auto kHostShutdown = static_cast<std::int32_t>(vbide::DisconnectMode::HostShutdown);

  bool connected_ = false;
};

com::ComPtr<IUnknown> NewAddIn() {
  Code::The();
  return com::MakeObject<com::AddInObject>(std::make_unique<Listener>()).As<IUnknown>();
}

bool IsClass(REFCLSID id, const registration::Class& known) {
  CLSID wanted{};
  return SUCCEEDED(::CLSIDFromString(com::Wide(std::u16string(known.classId)), &wanted)) && IsEqualCLSID(id, wanted);
}

com::ClassFactory::Maker MakerOf(REFCLSID id) {
  if (IsClass(id, registration::kConnect)) return &NewAddIn;
  if (IsClass(id, registration::kResultDialog)) return &NewDocumentObject;
  return nullptr;
}

}  // namespace

}  // namespace quorvane::windows

namespace server = quorvane::windows;
namespace com = quorvane::com;

extern "C" {

HRESULT WINAPI DllGetClassObject(REFCLSID id, REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  HRESULT answer = CLASS_E_CLASSNOTAVAILABLE;
  const HRESULT made = com::Guarded([&] {
    if (auto maker = server::MakerOf(id))
      answer = com::MakeObject<com::ClassFactory>(maker)->QueryInterface(iid, object);
  });
  return FAILED(made) ? made : answer;
}

HRESULT WINAPI DllCanUnloadNow() {
  if (com::ModuleReference::Count() != 0) return S_FALSE;
  if (server::Code::Running()) server::Code::End();
  return server::Code::Running() ? S_FALSE : S_OK;
}

HRESULT WINAPI DllRegisterServer() {
  return com::Guarded([] { com::RegisterServer(server::OwnPath()); });
}

HRESULT WINAPI DllUnregisterServer() {
  return com::Guarded([] { com::UnregisterServer(); });
}

BOOL WINAPI DllMain(HINSTANCE file, DWORD reason, void* processEnds) {
  if (reason == DLL_PROCESS_ATTACH) ::DisableThreadLibraryCalls(file);
  if (reason == DLL_PROCESS_DETACH && processEnds != nullptr) com::processEnds = true;
  return TRUE;
}

}  // extern "C"

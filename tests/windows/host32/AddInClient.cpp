#include "windows/host32/AddInClient.h"

#include <string_view>

#include "base/Error.h"
#include "base/Skip.h"
#include "windows/com/ErrorTranslation.h"
#include "windows/com/IDTExtensibility2.h"
#include "windows/com/LateBound.h"
#include "windows/com/RegistryKey.h"
#include "windows/host32/Classes.h"

namespace quorvane::container {

namespace {

using com::ComPtr;

/// Nobody's identifier for an interface of four members that the registry knows by the older one's name.
constexpr GUID kOlder = {0x01DE4EF0, 0x7A57, 0x4C11, {0x90, 0x01, 0x0A, 0x0B, 0x0C, 0x0D, 0x0E, 0x0F}};
constexpr char16_t kOlderKey[] = u"Software\\Classes\\Interface\\{01DE4EF0-7A57-4C11-9001-0A0B0C0D0E0F}";

/// The array of custom data that comes with each event: one empty value.
class CustomData {
 public:
  CustomData() { array_ = SafeArrayCreateVector(VT_VARIANT, 1, 1); }
  ~CustomData() { SafeArrayDestroy(array_); }
  CustomData(const CustomData&) = delete;
  CustomData& operator=(const CustomData&) = delete;

  SAFEARRAY** Reference() { return &array_; }
  VARIANT Value() {
    VARIANT value{};
    value.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
    value.pparray = &array_;
    return value;
  }

 private:
  SAFEARRAY* array_;
};

ComPtr<IDTExtensibility2> Interface(const ComPtr<IUnknown>& object, const GUID& iid) {
  ComPtr<IDTExtensibility2> events;
  com::Check(object->QueryInterface(iid, events.PutVoid()));
  return events;
}

}  // namespace

AddInClient::~AddInClient() {
  SkipErrors([this] { Disconnect(0); });
}

void AddInClient::Connect(const std::u16string& progId, const ComPtr<IDispatch>& application, long mode,
                          const ComPtr<IDispatch>& addIn) {
  object_ = MakeByProgId(progId);
  try {
    Tell(u"OnConnection", application, mode, addIn);
  } catch (...) {
    object_.Reset();
    throw;
  }
}

void AddInClient::Disconnect(long mode) {
  if (!object_) return;
  try {
    Tell(u"OnDisconnection", {}, mode, {});
  } catch (...) {
    object_.Reset();
    throw;
  }
  object_.Reset();
}

void AddInClient::Tell(const char16_t* event, const ComPtr<IDispatch>& application, long mode,
                       const ComPtr<IDispatch>& addIn) {
  CustomData custom;
  const bool connects = std::u16string_view(event) == u"OnConnection";
  if (way_ == ConnectBy::Dispatch) {
    com::ClassIds ids;
    const com::LateBound object(object_.As<IDispatch>(), ids);
    com::Variant array;
    *array.Put() = custom.Value();
    if (connects) {
      object.Call(event, application.Get(), static_cast<std::int32_t>(mode), addIn.Get(), std::move(array));
    } else {
      object.Call(event, static_cast<std::int32_t>(mode), std::move(array));
    }
    return;
  }
  if (way_ == ConnectBy::OlderInterface) {
    com::WriteText(HKEY_CURRENT_USER, kOlderKey, u"", u"_IDTExtensibility");
  }
  const auto events = Interface(object_, way_ == ConnectBy::Vtable ? __uuidof(IDTExtensibility2) : kOlder);
  if (connects) {
    com::Check(events->OnConnection(application.Get(), mode, addIn.Get(), custom.Reference()));
    if (way_ == ConnectBy::Vtable) com::Check(events->OnStartupComplete(custom.Reference()));
  } else {
    com::Check(events->OnDisconnection(mode, custom.Reference()));
  }
}

}  // namespace quorvane::container

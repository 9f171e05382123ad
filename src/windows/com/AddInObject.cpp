#include "windows/com/AddInObject.h"

#include <string>

#include "windows/com/RegistryKey.h"

namespace quorvane::com {

namespace {

void Connected(AddInListener& listener, const DispatchCall& call) {
  listener.OnConnection(call.Object(0), call.Int32(1), call.Has(2) ? call.Object(2) : ComPtr<IDispatch>());
}

void Nothing(AddInObject&, DispatchCall&) {}

/// The name under which the registry knows an interface; empty for one that it does not know.
std::u16string NameOf(REFIID iid) {
  wchar_t text[40] = {};
  if (StringFromGUID2(iid, text, 40) == 0) return {};
  const std::u16string key = u"Interface\\" + FromWide(text);
  const std::u16string own = ReadText(HKEY_CURRENT_USER, u"Software\\Classes\\" + key, u"");
  return own.empty() ? ReadText(HKEY_CLASSES_ROOT, key, u"") : own;
}

}  // namespace

const std::vector<DispatchMember<AddInObject>>& AddInObject::Members() {
  const auto connected = [](AddInObject& self, DispatchCall& call) { Connected(*self.listener_, call); };
  const auto disconnected = [](AddInObject& self, DispatchCall& call) {
    self.listener_->OnDisconnection(call.Int32(0));
  };
  static const std::vector<DispatchMember<AddInObject>> members = {
      {u"OnConnection", 1, DISPATCH_METHOD, connected},
      {u"OnDisconnection", 2, DISPATCH_METHOD, disconnected},
      {u"OnAddInsUpdate", 3, DISPATCH_METHOD, Nothing},
      {u"OnStartupComplete", 4, DISPATCH_METHOD, Nothing},
      {u"OnBeginShutdown", 5, DISPATCH_METHOD, Nothing},
      {u"AddinInstance_OnConnection", 101, DISPATCH_METHOD, connected},
      {u"AddinInstance_OnDisconnection", 102, DISPATCH_METHOD, disconnected},
      {u"AddinInstance_OnAddInsUpdate", 103, DISPATCH_METHOD, Nothing},
      {u"AddinInstance_OnStartupComplete", 104, DISPATCH_METHOD, Nothing},
      {u"AddinInstance_OnBeginShutdown", 105, DISPATCH_METHOD, Nothing},
  };
  return members;
}

HRESULT AddInObject::OnConnection(IDispatch* application, LONG mode, IDispatch* addIn, SAFEARRAY**) {
  const ComPtr<AddInObject> alive(this);
  return Guarded([&] {
    listener_->OnConnection(ComPtr<IDispatch>(application), static_cast<std::int32_t>(mode), ComPtr<IDispatch>(addIn));
  });
}

HRESULT AddInObject::OnDisconnection(LONG mode, SAFEARRAY**) {
  const ComPtr<AddInObject> alive(this);
  return Guarded([&] { listener_->OnDisconnection(static_cast<std::int32_t>(mode)); });
}

void* AddInObject::AnswerOther(REFIID iid) {
  const std::u16string name = NameOf(iid);
  const bool older = name == u"IDTExtensibility" || name == u"_IDTExtensibility";
  return older ? static_cast<IDTExtensibility2*>(this) : nullptr;
}

}  // namespace quorvane::com

#include "windows/com/EventConnection.h"

#include <utility>

#include "base/Text.h"
#include "windows/com/Bstr.h"
#include "windows/com/ErrorTranslation.h"
#include "windows/com/EventSink.h"
#include "windows/com/WideText.h"

namespace quorvane::com {

namespace {

constexpr DISPID kOnlyEvent = 1;

/// The default source interface among those of a class; nothing when its type information names none.
ComPtr<ITypeInfo> DefaultSource(ITypeInfo& classInfo) {
  TYPEATTR* attributes = nullptr;
  if (FAILED(classInfo.GetTypeAttr(&attributes)) || attributes == nullptr) return {};
  const UINT count = attributes->cImplTypes;
  classInfo.ReleaseTypeAttr(attributes);
  for (UINT i = 0; i < count; ++i) {
    INT flags = 0;
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> source;
    if (FAILED(classInfo.GetImplTypeFlags(i, &flags))) continue;
    if ((flags & (IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE)) != (IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE)) {
      continue;
    }
    if (FAILED(classInfo.GetRefTypeOfImplType(i, &reference))) continue;
    if (SUCCEEDED(classInfo.GetRefTypeInfo(reference, source.Put()))) return source;
  }
  return {};
}

ComPtr<ITypeInfo> SourceInfo(const ComPtr<IUnknown>& source) {
  ComPtr<ITypeInfo> classInfo;
  const auto provider = source.As<IProvideClassInfo>();
  if (!provider || FAILED(provider->GetClassInfo(classInfo.Put())) || !classInfo) return {};
  return DefaultSource(*classInfo);
}

GUID InterfaceOf(ITypeInfo& info) {
  GUID guid = GUID_NULL;
  TYPEATTR* attributes = nullptr;
  if (FAILED(info.GetTypeAttr(&attributes)) || attributes == nullptr) return guid;
  guid = attributes->guid;
  info.ReleaseTypeAttr(attributes);
  return guid;
}

/// The interface that the type library of the object's own type information describes under this identifier.
ComPtr<ITypeInfo> FromLibraryOf(const ComPtr<IUnknown>& source, REFIID iid) {
  const auto object = source.As<IDispatch>();
  ComPtr<ITypeInfo> own;
  ComPtr<ITypeLib> library;
  ComPtr<ITypeInfo> wanted;
  UINT index = 0;
  if (!object || FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, own.Put())) || !own) return {};
  if (FAILED(own->GetContainingTypeLib(library.Put(), &index)) || !library) return {};
  if (FAILED(library->GetTypeInfoOfGuid(iid, wanted.Put()))) return {};
  return wanted;
}

/// The member of that name among those that the interface describes one by one.
bool FindDescribed(ITypeInfo& info, const std::u16string& event, MEMBERID& id) {
  FUNCDESC* member = nullptr;
  for (UINT i = 0; SUCCEEDED(info.GetFuncDesc(i, &member)) && member != nullptr; ++i) {
    const MEMBERID candidate = member->memid;
    info.ReleaseFuncDesc(member);
    member = nullptr;
    Bstr name;
    UINT count = 0;
    if (FAILED(info.GetNames(candidate, name.Put(), 1, &count)) || count == 0) continue;
    if (!EqualsNoCaseAscii(name.Text(), event)) continue;
    id = candidate;
    return true;
  }
  return false;
}

DISPID IdIn(const ComPtr<ITypeInfo>& info, std::u16string event) {
  MEMBERID id = kOnlyEvent;
  wchar_t* names[] = {Wide(event.data())};
  if (!info) return kOnlyEvent;
  if (SUCCEEDED(info->GetIDsOfNames(names, 1, &id))) return id;
  return FindDescribed(*info, event, id) ? id : kOnlyEvent;
}

IID InterfaceOf(IConnectionPoint& point) {
  IID iid = IID_NULL;
  return SUCCEEDED(point.GetConnectionInterface(&iid)) ? iid : IID_NULL;
}

/// The point of that interface; when the source's class names none, the first of all that is not the one by which any
/// object tells of its changed properties.
ComPtr<IConnectionPoint> PointOf(const ComPtr<IUnknown>& source, const ComPtr<ITypeInfo>& info) {
  const auto container = source.As<IConnectionPointContainer>();
  if (!container) Check(E_NOINTERFACE);
  ComPtr<IConnectionPoint> point;
  if (info && SUCCEEDED(container->FindConnectionPoint(InterfaceOf(*info), point.Put())) && point) return point;
  ComPtr<IEnumConnectionPoints> points;
  if (SUCCEEDED(container->EnumConnectionPoints(points.Put())) && points) {
    ULONG fetched = 0;
    while (points->Next(1, point.Put(), &fetched) == S_OK && point) {
      if (!IsEqualIID(InterfaceOf(*point), IID_IPropertyNotifySink)) return point;
    }
  }
  Check(container->FindConnectionPoint(IID_IDispatch, point.Put()));
  if (!point) Check(CONNECT_E_NOCONNECTION);
  return point;
}

}  // namespace

EventConnection::EventConnection(const ComPtr<IUnknown>& source, const std::u16string& event, Handler handler) {
  if (!source) RaiseError(ErrorNumber::ObjectNotSet);
  ComPtr<ITypeInfo> info = SourceInfo(source);
  point_ = PointOf(source, info);
  const IID iid = InterfaceOf(*point_);
  if (!info || !IsEqualGUID(InterfaceOf(*info), iid)) info = FromLibraryOf(source, iid);
  sink_ = MakeObject<EventSink>(iid, IdIn(info, event), std::move(handler));
  Check(point_->Advise(static_cast<IDispatch*>(sink_.Get()), &cookie_));
}

EventConnection::~EventConnection() {
  sink_->Stop();
  point_->Unadvise(cookie_);
}

}  // namespace quorvane::com

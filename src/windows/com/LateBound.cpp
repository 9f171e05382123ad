#include "windows/com/LateBound.h"

#include <algorithm>
#include <string>

#include "base/Error.h"
#include "windows/com/ErrorTranslation.h"
#include "windows/com/WideText.h"

namespace quorvane::com {

namespace {

/// The identifier of the object's class, GUID_NULL when it tells of none. Type information that bears the name of
/// IDispatch itself says nothing of the class.
GUID ClassOf(IDispatch& object) {
  ComPtr<ITypeInfo> info;
  TYPEATTR* attributes = nullptr;
  if (FAILED(object.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.Put())) || !info) return GUID_NULL;
  if (FAILED(info->GetTypeAttr(&attributes)) || attributes == nullptr) return GUID_NULL;
  const GUID guid = attributes->guid;
  info->ReleaseTypeAttr(attributes);
  return IsEqualGUID(guid, IID_IDispatch) || IsEqualGUID(guid, IID_IUnknown) ? GUID_NULL : guid;
}

/// The call did not get as far as the member.
bool MissesMember(HRESULT result) {
  return result == DISP_E_MEMBERNOTFOUND || result == DISP_E_UNKNOWNNAME;
}

}  // namespace

DISPID MemberIds::IdOf(IDispatch& object, const char16_t* name) {
  const std::u16string_view wanted(name);
  for (const auto& [known, id] : known_) {
    if (known == wanted) return id;
  }
  DISPID id = DISPID_UNKNOWN;
  std::u16string buffer(wanted);
  wchar_t* names[] = {Wide(buffer.data())};
  const HRESULT result = object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  if (MissesMember(result)) {
    RaiseError(ErrorNumber::NoSuchMember, u"Object doesn't support this property or method: " + buffer);
  }
  Check(result);
  known_.emplace_back(wanted, id);
  return id;
}

bool MemberIds::Knows(const char16_t* name) const {
  return std::ranges::any_of(known_, [&](const auto& known) { return known.first == name; });
}

std::shared_ptr<MemberIds> ClassIds::Of(IDispatch& object) {
  const GUID guid = ClassOf(object);
  if (IsEqualGUID(guid, GUID_NULL)) return std::make_shared<MemberIds>();
  for (const auto& [known, ids] : classes_) {
    if (IsEqualGUID(known, guid)) return ids;
  }
  return classes_.emplace_back(guid, std::make_shared<MemberIds>()).second;
}

LateBound::LateBound(ComPtr<IDispatch> object, ClassIds& classes) : object_(std::move(object)) {
  if (object_) ids_ = classes.Of(*object_);
}

/// An id that was learnt from another object of the class, and that this one does not know, is asked for again.
HRESULT LateBound::Ask(IDispatch& object, const char16_t* name, WORD flags, DISPPARAMS& arguments, VARIANT* result,
                       EXCEPINFO& exception) const {
  UINT wrong = 0;
  const auto invoke = [&](MemberIds& ids) {
    return object.Invoke(ids.IdOf(object, name), IID_NULL, LOCALE_USER_DEFAULT, flags, &arguments, result, &exception,
                         &wrong);
  };
  const std::shared_ptr<MemberIds> ids = ids_;
  const bool learnt = ids->Knows(name);
  const HRESULT outcome = invoke(*ids);
  if (!learnt || !MissesMember(outcome)) return outcome;
  MemberIds own;
  return invoke(own);
}

void LateBound::Put(const char16_t* name, const Variant& value) const {
  VARIANT given = value.Get();
  Invoke(name, DISPATCH_PROPERTYPUT, &given, 1);
}

Variant LateBound::Invoke(const char16_t* name, WORD flags, VARIANT* reversed, std::size_t count) const {
  const ComPtr<IDispatch> object = object_;  // the call may end in our own release of it
  if (!object) RaiseError(ErrorNumber::ObjectNotSet);
  const bool put = flags == DISPATCH_PROPERTYPUT;
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS arguments{reversed, put ? &named : nullptr, static_cast<UINT>(count), put ? 1U : 0U};
  EXCEPINFO exception{};
  Variant result;
  const HRESULT outcome = Ask(*object, name, flags, arguments, put ? nullptr : result.Put(), exception);
  if (FAILED(outcome)) throw ErrorOf(outcome, exception);
  return result;
}

}  // namespace quorvane::com

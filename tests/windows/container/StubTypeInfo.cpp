#include "windows/container/StubTypeInfo.h"

#include <new>

#include "base/Text.h"
#include "windows/com/WideText.h"

namespace quorvane::container {

HRESULT StubTypeInfo::GetTypeAttr(TYPEATTR** attributes) {
  *attributes = new (std::nothrow) TYPEATTR{};
  if (*attributes == nullptr) return E_OUTOFMEMORY;
  (*attributes)->guid = guid_;
  (*attributes)->typekind = source_ ? TKIND_COCLASS : TKIND_DISPATCH;
  (*attributes)->cImplTypes = source_ ? 1 : 0;
  return S_OK;
}

HRESULT StubTypeInfo::GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) {
  if (onlyDescribes_) return E_NOTIMPL;
  if (count != 1) return DISP_E_UNKNOWNNAME;
  for (const auto& [name, id] : ids_) {
    if (!EqualsNoCaseAscii(name, com::FromWide(names[0]))) continue;
    ids[0] = id;
    return S_OK;
  }
  return DISP_E_UNKNOWNNAME;
}

HRESULT StubTypeInfo::GetFuncDesc(UINT index, FUNCDESC** member) {
  if (index >= ids_.size()) return TYPE_E_ELEMENTNOTFOUND;
  *member = new (std::nothrow) FUNCDESC{};
  if (*member == nullptr) return E_OUTOFMEMORY;
  (*member)->memid = ids_[index].second;
  return S_OK;
}

HRESULT StubTypeInfo::GetNames(MEMBERID id, BSTR* names, UINT count, UINT* given) {
  *given = 0;
  for (const auto& [name, known] : ids_) {
    if (known != id || count == 0) continue;
    names[0] = SysAllocString(com::Wide(name));
    *given = 1;
    return S_OK;
  }
  return TYPE_E_ELEMENTNOTFOUND;
}

HRESULT StubTypeInfo::GetRefTypeOfImplType(UINT index, HREFTYPE* reference) {
  if (!source_ || index != 0) return TYPE_E_ELEMENTNOTFOUND;
  *reference = 1;
  return S_OK;
}

HRESULT StubTypeInfo::GetImplTypeFlags(UINT index, INT* flags) {
  if (!source_ || index != 0) return TYPE_E_ELEMENTNOTFOUND;
  *flags = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  return S_OK;
}

HRESULT StubTypeInfo::GetRefTypeInfo(HREFTYPE reference, ITypeInfo** info) {
  if (!source_ || reference != 1) return TYPE_E_ELEMENTNOTFOUND;
  *info = com::ComPtr<ITypeInfo>(source_).Detach();
  return S_OK;
}

}  // namespace quorvane::container

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "windows/com/ComObject.h"

namespace quorvane::container {

/// Type information that tells the identifier of a class or an interface and the ids of its members; as that of a
/// class, also the interface by which it raises its events. Nothing else. It may find ids by name, or only describe one
/// member after the other.
class StubTypeInfo final : public com::ComObject<ITypeInfo> {
 public:
  using Ids = std::vector<std::pair<std::u16string, MEMBERID>>;

  StubTypeInfo(const GUID& guid, Ids ids, com::ComPtr<ITypeInfo> source = nullptr, bool onlyDescribes = false)
      : guid_(guid), ids_(std::move(ids)), source_(std::move(source)), onlyDescribes_(onlyDescribes) {}

  HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR** attributes) override;
  void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR* attributes) override { delete attributes; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) override;
  HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT index, HREFTYPE* reference) override;
  HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT index, INT* flags) override;
  HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE reference, ITypeInfo** info) override;

  HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT index, FUNCDESC** member) override;
  HRESULT STDMETHODCALLTYPE GetVarDesc(UINT, VARDESC**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNames(MEMBERID id, BSTR* names, UINT count, UINT* given) override;
  HRESULT STDMETHODCALLTYPE Invoke(PVOID, MEMBERID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID, BSTR*, BSTR*, DWORD*, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetDllEntry(MEMBERID, INVOKEKIND, BSTR*, BSTR*, WORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE AddressOfMember(MEMBERID, INVOKEKIND, PVOID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, PVOID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMops(MEMBERID, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib**, UINT*) override { return E_NOTIMPL; }
  void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC* member) override { delete member; }
  void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC*) override {}

 private:
  GUID guid_;
  Ids ids_;
  com::ComPtr<ITypeInfo> source_;
  bool onlyDescribes_;
};

}  // namespace quorvane::container

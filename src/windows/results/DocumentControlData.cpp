// What a control has to answer beside its window: a picture of itself, data (none), state (none) and its type.

#include "addin/core/RegistrationData.h"
#include "windows/forms/Entry.h"
#include "windows/results/DocumentClassInfo.h"
#include "windows/results/DocumentControl.h"

namespace quorvane::windows {

using com::ComPtr;

namespace {

/// `*place` empty, for what is not there.
template <class T>
HRESULT None(T** place, HRESULT result) {
  if (place == nullptr) return E_POINTER;
  *place = nullptr;
  return result;
}

}  // namespace

// --- IViewObject2 ---

HRESULT DocumentControl::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC surface, LPCRECTL bounds, LPCRECTL,
                              WINBOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
  if (bounds == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  return windows::Enter<HRESULT>(E_FAIL, [&] {
    window_->Draw(surface, {bounds->left, bounds->top, bounds->right, bounds->bottom});
    return S_OK;
  });
}

HRESULT DocumentControl::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** palette) {
  return None(palette, S_FALSE);
}

HRESULT DocumentControl::Freeze(DWORD, LONG, void*, DWORD* key) {
  if (key != nullptr) *key = 0;
  return E_NOTIMPL;
}

HRESULT DocumentControl::Unfreeze(DWORD) {
  return OLE_E_NOCONNECTION;
}

HRESULT DocumentControl::SetAdvise(DWORD, DWORD, IAdviseSink* sink) {
  viewSink_ = ComPtr<IAdviseSink>(sink);
  return S_OK;
}

HRESULT DocumentControl::GetAdvise(DWORD* aspects, DWORD* how, IAdviseSink** sink) {
  if (aspects != nullptr) *aspects = DVASPECT_CONTENT;
  if (how != nullptr) *how = 0;
  if (sink != nullptr) *sink = ComPtr<IAdviseSink>(viewSink_).Detach();
  return S_OK;
}

HRESULT DocumentControl::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) {
  return GetExtent(aspect, size);
}

// --- IDataObject ---

HRESULT DocumentControl::GetData(FORMATETC*, STGMEDIUM*) {
  return DV_E_FORMATETC;
}

HRESULT DocumentControl::GetDataHere(FORMATETC*, STGMEDIUM*) {
  return DV_E_FORMATETC;
}

HRESULT DocumentControl::QueryGetData(FORMATETC*) {
  return DV_E_FORMATETC;
}

HRESULT DocumentControl::GetCanonicalFormatEtc(FORMATETC*, FORMATETC* canonical) {
  if (canonical == nullptr) return E_POINTER;
  *canonical = {};
  return DATA_S_SAMEFORMATETC;
}

HRESULT DocumentControl::SetData(FORMATETC*, STGMEDIUM*, WINBOOL) {
  return E_NOTIMPL;
}

HRESULT DocumentControl::EnumFormatEtc(DWORD, IEnumFORMATETC** formats) {
  return None(formats, E_NOTIMPL);
}

HRESULT DocumentControl::DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD* connection) {
  if (connection != nullptr) *connection = 0;
  return OLE_E_ADVISENOTSUPPORTED;
}

HRESULT DocumentControl::DUnadvise(DWORD) {
  return OLE_E_ADVISENOTSUPPORTED;
}

HRESULT DocumentControl::EnumDAdvise(IEnumSTATDATA** advises) {
  return None(advises, OLE_E_ADVISENOTSUPPORTED);
}

// --- state: there is none to keep ---

HRESULT DocumentControl::GetClassID(CLSID* id) {
  if (id == nullptr) return E_POINTER;
  return windows::Enter<HRESULT>(E_FAIL, [&] {
    *id = ClassIdOf(registration::kResultDialog.classId);
    return S_OK;
  });
}

HRESULT DocumentControl::GetUserType(DWORD, LPOLESTR* name) {
  if (name == nullptr) return E_POINTER;
  const std::u16string_view words = registration::kResultDialog.name;
  *name = static_cast<LPOLESTR>(::CoTaskMemAlloc((words.size() + 1) * sizeof(wchar_t)));
  if (*name == nullptr) return E_OUTOFMEMORY;
  *std::copy(words.begin(), words.end(), *name) = 0;
  return S_OK;
}

HRESULT DocumentControl::IsDirty() {
  return S_FALSE;
}

HRESULT DocumentControl::InitNew() {
  return S_OK;
}

HRESULT DocumentControl::Load(IStream*) {
  return S_OK;
}

HRESULT DocumentControl::Save(IStream*, WINBOOL) {
  return S_OK;
}

HRESULT DocumentControl::GetSizeMax(ULARGE_INTEGER* size) {
  if (size == nullptr) return E_POINTER;
  size->QuadPart = 0;
  return S_OK;
}

HRESULT DocumentControl::InitNew(IStorage*) {
  return S_OK;
}

HRESULT DocumentControl::Load(IStorage*) {
  return S_OK;
}

HRESULT DocumentControl::Save(IStorage*, WINBOOL) {
  return S_OK;
}

HRESULT DocumentControl::SaveCompleted(IStorage*) {
  return S_OK;
}

HRESULT DocumentControl::HandsOffStorage() {
  return S_OK;
}

HRESULT DocumentControl::Load(IPropertyBag*, IErrorLog*) {
  return S_OK;
}

HRESULT DocumentControl::Save(IPropertyBag*, WINBOOL, WINBOOL) {
  return S_OK;
}

HRESULT DocumentControl::GetClassInfo(ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return windows::Enter<HRESULT>(E_FAIL, [&] {
    if (!classInfo_) classInfo_ = MakeClassInfo(u"ResultDialog", registration::kResultDialog.classId);
    *info = ComPtr<ITypeInfo>(classInfo_).Detach();
    return S_OK;
  });
}

}  // namespace quorvane::windows

#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "base/Event.h"
#include "windows/com/DispatchObject.h"
#include "windows/com/HostedDocument.h"
#include "windows/results/DocumentActivation.h"
#include "windows/results/DocumentInterfaces.h"
#include "windows/results/DocumentWindow.h"

namespace quorvane::windows {

class ViewFactory;

/// The document of a tool window as the host makes it: a control that is active in place. It holds the inner document,
/// which the system works with, and gives that a window from the start to the end, wherever the host has it: a window
/// that the host has destroyed is made again. It has no state that could be stored.
///
/// Others hold the inner document too, and may do so longer.
class DocumentControl final
    : public com::DispatchObject<DocumentControl, IDispatch, IOleObject, IOleInPlaceObject, IOleInPlaceActiveObject,
                                 IOleControl, IViewObject2, IDataObject, IPersistStreamInit, IPersistStorage,
                                 IPersistPropertyBag, IQuickActivate, IProvideClassInfo, IHostedDocument> {
 public:
  using MakeView = std::function<std::unique_ptr<View>(HWND parent)>;

  /// `makeView` gives a new view of the document each time.
  DocumentControl(std::shared_ptr<vbide::Document> document, MakeView makeView);

  static const std::vector<com::DispatchMember<DocumentControl>>& Members();

  HRESULT STDMETHODCALLTYPE GetDocument(const void* file, std::shared_ptr<vbide::Document>* document) override;

  // IOleObject
  HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
  HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override;
  HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR application, LPCOLESTR object) override;
  HRESULT STDMETHODCALLTYPE Close(DWORD save) override;
  HRESULT STDMETHODCALLTYPE SetMoniker(DWORD which, IMoniker* moniker) override;
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
  HRESULT STDMETHODCALLTYPE InitFromData(IDataObject* data, WINBOOL creation, DWORD reserved) override;
  HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD reserved, IDataObject** data) override;
  HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                                   LPCRECT place) override;
  HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) override;
  HRESULT STDMETHODCALLTYPE Update() override;
  HRESULT STDMETHODCALLTYPE IsUpToDate() override;
  HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* id) override;
  HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* name) override;
  HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* size) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* size) override;
  HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* connection) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) override;
  HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** advises) override;
  HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
  HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE* palette) override;

  // IOleInPlaceObject and IOleInPlaceActiveObject
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(WINBOOL enter) override;
  HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
  HRESULT STDMETHODCALLTYPE UIDeactivate() override;
  HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT place, LPCRECT clip) override;
  HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override;
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message) override;
  HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(WINBOOL active) override;
  HRESULT STDMETHODCALLTYPE OnDocWindowActivate(WINBOOL active) override;
  HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window, WINBOOL frame) override;
  HRESULT STDMETHODCALLTYPE EnableModeless(WINBOOL enable) override;

  // IOleControl and IQuickActivate
  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override;
  HRESULT STDMETHODCALLTYPE OnMnemonic(MSG* message) override;
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID id) override;
  HRESULT STDMETHODCALLTYPE FreezeEvents(WINBOOL freeze) override;
  HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) override;
  HRESULT STDMETHODCALLTYPE SetContentExtent(LPSIZEL size) override;
  HRESULT STDMETHODCALLTYPE GetContentExtent(LPSIZEL size) override;

  // IViewObject2
  HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC target,
                                 HDC surface, LPCRECTL bounds, LPCRECTL windowBounds,
                                 WINBOOL(STDMETHODCALLTYPE* goOn)(ULONG_PTR), ULONG_PTR argument) override;
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC target,
                                        LOGPALETTE** palette) override;
  HRESULT STDMETHODCALLTYPE Freeze(DWORD aspect, LONG index, void* aspectInfo, DWORD* key) override;
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD key) override;
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD how, IAdviseSink* sink) override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* how, IAdviseSink** sink) override;
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, LPSIZEL size) override;

  // IDataObject
  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override;
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* format, STGMEDIUM* medium) override;
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override;
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) override;
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC* format, STGMEDIUM* medium, WINBOOL release) override;
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* format, DWORD how, IAdviseSink* sink, DWORD* connection) override;
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD connection) override;
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** advises) override;

  // IPersistStreamInit, IPersistStorage, IPersistPropertyBag, IProvideClassInfo
  HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) override;
  HRESULT STDMETHODCALLTYPE IsDirty() override;
  HRESULT STDMETHODCALLTYPE InitNew() override;
  HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
  HRESULT STDMETHODCALLTYPE Save(IStream* stream, WINBOOL clear) override;
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override;
  HRESULT STDMETHODCALLTYPE InitNew(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE Load(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE Save(IStorage* storage, WINBOOL same) override;
  HRESULT STDMETHODCALLTYPE SaveCompleted(IStorage* storage) override;
  HRESULT STDMETHODCALLTYPE HandsOffStorage() override;
  HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) override;
  HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, WINBOOL clear, WINBOOL all) override;
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;

 protected:
  ~DocumentControl() override;

 private:
  /// Runs `body` as an entry, during which this object stays.
  template <class Body>
  HRESULT Enter(Body body) noexcept;
  void MakeWindow();

  std::shared_ptr<vbide::Document> document_;
  MakeView makeView_;
  std::unique_ptr<DocumentWindow> window_;  ///< never nothing
  std::vector<Subscription> onWindow_;
  DocumentActivation activation_;
  SIZEL extent_;  ///< HIMETRIC
  com::ComPtr<IOleAdviseHolder> advises_;
  com::ComPtr<IAdviseSink> viewSink_;
  com::ComPtr<ITypeInfo> classInfo_;  ///< made at first use
};

}  // namespace quorvane::windows

#include "windows/results/DocumentControl.h"

#include <utility>

#include "windows/com/Variant.h"
#include "windows/forms/Entry.h"
#include "windows/forms/Handles.h"

namespace quorvane::windows {

using com::ComPtr;

namespace {

/// Drawn anew at a new size, no links into it, active from inside out and while visible, site before state; as it is
/// registered.
constexpr DWORD kMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                              OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;
constexpr SIZEL kUsualExtent{12700, 5300};  // about 480 by 200 pixels

}  // namespace

DocumentControl::DocumentControl(std::shared_ptr<vbide::Document> document, MakeView makeView)
    : document_(std::move(document)),
      makeView_(std::move(makeView)),
      activation_(*this, [this]() -> DocumentWindow& { return *window_; }),
      extent_(kUsualExtent) {
  MakeWindow();
  com::NoteDocument(document_);
}

/// The window may stand on the stack below, and shows a document that its other holders may let go meanwhile.
DocumentControl::~DocumentControl() {
  onWindow_.clear();
  window_->Park();
  std::shared_ptr<DocumentWindow> doomed = std::move(window_);
  Entry::WhenAtRest([window = std::move(doomed), document = document_]() mutable { window.reset(); });
}

void DocumentControl::MakeWindow() {
  onWindow_.clear();
  Window::Bury(std::exchange(window_, std::make_unique<DocumentWindow>(makeView_)));
  onWindow_.push_back(window_->Entered.Subscribe([this] {
    if (activation_.IsInPlace()) activation_.Activate(nullptr, true);
  }));
  onWindow_.push_back(window_->Gone.Subscribe([this] {
    activation_.Forget();
    MakeWindow();
  }));
}

template <class Body>
HRESULT DocumentControl::Enter(Body body) noexcept {
  const ComPtr<DocumentControl> alive(this);
  return windows::Enter<HRESULT>(E_FAIL, body);
}

const std::vector<com::DispatchMember<DocumentControl>>& DocumentControl::Members() {
  static const std::vector<com::DispatchMember<DocumentControl>> members = {
      {u"hwnd", DISPID_HWND, com::kCalled,
       [](DocumentControl& self, com::DispatchCall& call) {
         call.Return(com::Variant::Of(HandleOf(self.window_->Handle())));
       }},
  };
  return members;
}

HRESULT DocumentControl::GetDocument(const void* file, std::shared_ptr<vbide::Document>* document) {
  if (document == nullptr) return E_POINTER;
  if (file != com::ThisFile()) return E_ACCESSDENIED;
  *document = document_;
  return S_OK;
}

// --- IOleObject ---

HRESULT DocumentControl::SetClientSite(IOleClientSite* site) {
  return Enter([&] {
    if (site == nullptr) activation_.Deactivate();
    activation_.SetSite(site);
    return S_OK;
  });
}

HRESULT DocumentControl::GetClientSite(IOleClientSite** site) {
  if (site == nullptr) return E_POINTER;
  *site = ComPtr<IOleClientSite>(activation_.Site()).Detach();
  return S_OK;
}

HRESULT DocumentControl::SetHostNames(LPCOLESTR, LPCOLESTR) {
  return S_OK;
}

HRESULT DocumentControl::Close(DWORD) {
  return Enter([&] {
    activation_.Deactivate();
    if (advises_) advises_->SendOnClose();
    return S_OK;
  });
}

HRESULT DocumentControl::SetMoniker(DWORD, IMoniker*) {
  return E_NOTIMPL;
}

HRESULT DocumentControl::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  if (moniker != nullptr) *moniker = nullptr;
  return E_NOTIMPL;
}

HRESULT DocumentControl::InitFromData(IDataObject*, WINBOOL, DWORD) {
  return E_NOTIMPL;
}

HRESULT DocumentControl::GetClipboardData(DWORD, IDataObject** data) {
  if (data != nullptr) *data = nullptr;
  return E_NOTIMPL;
}

HRESULT DocumentControl::DoVerb(LONG verb, LPMSG, IOleClientSite* site, LONG, HWND, LPCRECT) {
  return Enter([&]() -> HRESULT {
    switch (verb) {
      case OLEIVERB_PRIMARY:
      case OLEIVERB_SHOW:
      case OLEIVERB_UIACTIVATE:
        return activation_.Activate(site, true);
      case OLEIVERB_INPLACEACTIVATE:
        return activation_.Activate(site, false);
      case OLEIVERB_HIDE:
        activation_.UserDeactivate();
        ::ShowWindow(window_->Handle(), SW_HIDE);
        return S_OK;
      case OLEIVERB_DISCARDUNDOSTATE:
        return S_OK;
      default:
        return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
    }
  });
}

HRESULT DocumentControl::EnumVerbs(IEnumOLEVERB** verbs) {
  if (verbs != nullptr) *verbs = nullptr;
  return OLEOBJ_E_NOVERBS;
}

HRESULT DocumentControl::Update() {
  return S_OK;
}

HRESULT DocumentControl::IsUpToDate() {
  return S_OK;
}

HRESULT DocumentControl::GetUserClassID(CLSID* id) {
  return GetClassID(id);
}

HRESULT DocumentControl::SetExtent(DWORD aspect, SIZEL* size) {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  extent_ = *size;
  return S_OK;
}

HRESULT DocumentControl::GetExtent(DWORD aspect, SIZEL* size) {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *size = extent_;
  return S_OK;
}

HRESULT DocumentControl::Advise(IAdviseSink* sink, DWORD* connection) {
  if (connection == nullptr) return E_POINTER;
  *connection = 0;
  if (!advises_) {
    const HRESULT made = ::CreateOleAdviseHolder(advises_.Put());
    if (FAILED(made)) return made;
  }
  return advises_->Advise(sink, connection);
}

HRESULT DocumentControl::Unadvise(DWORD connection) {
  return advises_ ? advises_->Unadvise(connection) : OLE_E_NOCONNECTION;
}

HRESULT DocumentControl::EnumAdvise(IEnumSTATDATA** advises) {
  if (advises == nullptr) return E_POINTER;
  *advises = nullptr;
  return advises_ ? advises_->EnumAdvise(advises) : S_OK;
}

HRESULT DocumentControl::GetMiscStatus(DWORD, DWORD* status) {
  if (status == nullptr) return E_POINTER;
  *status = kMiscStatus;
  return S_OK;
}

HRESULT DocumentControl::SetColorScheme(LOGPALETTE*) {
  return E_NOTIMPL;
}

// --- in place ---

/// There is a window at any time, also before the host has a place for it.
HRESULT DocumentControl::GetWindow(HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = window_->Handle();
  return *window != nullptr ? S_OK : E_FAIL;
}

HRESULT DocumentControl::ContextSensitiveHelp(WINBOOL) {
  return E_NOTIMPL;
}

HRESULT DocumentControl::InPlaceDeactivate() {
  return Enter([&] {
    activation_.Deactivate();
    return S_OK;
  });
}

HRESULT DocumentControl::UIDeactivate() {
  return Enter([&] {
    activation_.UserDeactivate();
    return S_OK;
  });
}

HRESULT DocumentControl::SetObjectRects(LPCRECT place, LPCRECT clip) {
  if (place == nullptr) return E_POINTER;
  return Enter([&] {
    if (activation_.IsInPlace()) window_->MoveTo(*place, clip != nullptr ? *clip : *place);
    return S_OK;
  });
}

HRESULT DocumentControl::ReactivateAndUndo() {
  return INPLACE_E_NOTUNDOABLE;
}

/// What the document has no use for its site may want, and after that the host itself.
HRESULT DocumentControl::TranslateAccelerator(LPMSG message) {
  if (message == nullptr) return E_POINTER;
  return Enter([&]() -> HRESULT {
    if (window_->TakeKey(*message)) return S_OK;
    const auto site = activation_.Site().As<IOleControlSite>();
    return site ? site->TranslateAccelerator(message, 0) : S_FALSE;
  });
}

HRESULT DocumentControl::OnFrameWindowActivate(WINBOOL) {
  return S_OK;
}

HRESULT DocumentControl::OnDocWindowActivate(WINBOOL) {
  return S_OK;
}

HRESULT DocumentControl::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, WINBOOL) {
  return S_OK;
}

HRESULT DocumentControl::EnableModeless(WINBOOL) {
  return S_OK;
}

// --- IOleControl and IQuickActivate ---

HRESULT DocumentControl::GetControlInfo(CONTROLINFO* info) {
  if (info == nullptr) return E_POINTER;
  info->hAccel = nullptr;
  info->cAccel = 0;
  info->dwFlags = CTRLINFO_EATS_RETURN | CTRLINFO_EATS_ESCAPE;
  return S_OK;
}

HRESULT DocumentControl::OnMnemonic(MSG*) {
  return S_OK;
}

HRESULT DocumentControl::OnAmbientPropertyChange(DISPID) {
  return S_OK;
}

HRESULT DocumentControl::FreezeEvents(WINBOOL) {
  return S_OK;
}

/// The whole beginning of a control in one call. It raises no events and tells of no changed properties.
HRESULT DocumentControl::QuickActivate(QACONTAINER* container, QACONTROL* control) {
  if (container == nullptr || control == nullptr) return E_POINTER;
  if (container->cbSize < sizeof(QACONTAINER) || control->cbSize < sizeof(QACONTROL)) return E_INVALIDARG;
  return Enter([&] {
    SetClientSite(container->pClientSite);
    if (container->pAdviseSink != nullptr) SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
    const ULONG size = control->cbSize;
    *control = {};
    control->cbSize = size;
    control->dwMiscStatus = kMiscStatus;
    control->dwViewStatus = VIEWSTATUS_OPAQUE;
    return S_OK;
  });
}

HRESULT DocumentControl::SetContentExtent(LPSIZEL size) {
  return SetExtent(DVASPECT_CONTENT, size);
}

HRESULT DocumentControl::GetContentExtent(LPSIZEL size) {
  return GetExtent(DVASPECT_CONTENT, size);
}

}  // namespace quorvane::windows

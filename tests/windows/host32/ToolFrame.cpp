#include "windows/host32/ToolFrame.h"

#include <algorithm>
#include <utility>

namespace quorvane::container {

namespace {

constexpr int kDockedHeight = 220;

}  // namespace

HRESULT ToolSite::GetWindow(HWND* window) {
  *window = frame_ != nullptr ? frame_->Handle() : nullptr;
  return *window != nullptr ? S_OK : E_FAIL;
}

HRESULT ToolSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** window, LPRECT place, LPRECT clip,
                                   LPOLEINPLACEFRAMEINFO info) {
  if (frame_ == nullptr) return E_FAIL;
  *frame = com::ComPtr<IOleInPlaceFrame>(this).Detach();
  *window = nullptr;
  *place = *clip = frame_->Place();
  info->fMDIApp = FALSE;
  info->hwndFrame = frame_->Handle();
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

HRESULT ToolSite::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) {
  if (id != DISPID_AMBIENT_USERMODE || result == nullptr) return DISP_E_MEMBERNOTFOUND;
  result->vt = VT_BOOL;
  result->boolVal = VARIANT_TRUE;
  return S_OK;
}

ToolFrame::ToolFrame(HWND main, std::shared_ptr<workbench::HostWindow> model, com::ComPtr<IUnknown> document)
    : main_(main), model_(std::move(model)), document_(document.As<IOleObject>()) {
  if (!document_) com::Check(E_NOINTERFACE);
  site_ = com::MakeObject<ToolSite>(*this);
  com::Check(document_->SetClientSite(site_.Get()));
  if (const auto state = document_.As<IPersistStreamInit>()) com::Check(state->InitNew());
  modelChanged_ = model_->Changed.Subscribe([this] { FollowModel(); });
  MakeWindow();
}

ToolFrame::~ToolFrame() {
  Close();
}

void ToolFrame::Close() {
  modelChanged_.Reset();
  document_->Close(OLECLOSE_NOSAVE);
  document_->SetClientSite(nullptr);
  document_.Reset();
  site_->Detach();
  site_.Reset();
  if (handle_ != nullptr) DestroyWindow(handle_);
}

void ToolFrame::MakeWindow() {
  const DWORD style =
      docked_ ? WS_CHILD | WS_CLIPCHILDREN : WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN;
  RECT place{};
  GetWindowRect(main_, &place);
  CreateWindowExW(docked_ ? WS_EX_CLIENTEDGE : WS_EX_TOOLWINDOW, L"VbToolFrame", com::Wide(model_->Caption()), style,
                  place.left + 80, place.top + 260, 560, 260, main_, nullptr, GetModuleHandleW(nullptr),
                  static_cast<WindowObject*>(this));
}

void ToolFrame::DestroyWindowOf(bool rude) {
  const auto inPlace = document_.As<IOleInPlaceObject>();
  if (!rude && inPlace) inPlace->InPlaceDeactivate();
  DestroyWindow(handle_);
}

void ToolFrame::SetDocked(bool docked, bool rude) {
  DestroyWindowOf(rude);
  docked_ = docked;
  MakeWindow();
  FollowModel();
  LayoutChanged.Raise();
}

RECT ToolFrame::Place() const {
  RECT client{};
  GetClientRect(handle_, &client);
  return client;
}

void ToolFrame::TakeRoom(RECT& client) {
  if (!docked_ || !model_->Visible()) return;
  const LONG height = std::min<LONG>(kDockedHeight, (client.bottom - client.top) / 2);
  client.bottom -= height;
  MoveWindow(handle_, client.left, client.bottom, client.right - client.left, height, TRUE);
}

void ToolFrame::Activate(LONG verb) {
  RECT place = Place();
  document_->DoVerb(verb, nullptr, site_.Get(), 0, handle_, &place);
}

void ToolFrame::FollowModel() {
  SetWindowTextW(handle_, com::Wide(model_->Caption()));
  const bool visible = (GetWindowLongW(handle_, GWL_STYLE) & WS_VISIBLE) != 0;
  if (model_->Visible() == visible) return;
  ShowWindow(handle_, model_->Visible() ? SW_SHOWNA : SW_HIDE);
  if (model_->Visible()) Activate(OLEIVERB_INPLACEACTIVATE);
  LayoutChanged.Raise();
}

LRESULT ToolFrame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      if (document_) {
        const RECT place = Place();
        if (const auto inPlace = document_.As<IOleInPlaceObject>()) inPlace->SetObjectRects(&place, &place);
      }
      return 0;
    case WM_SETFOCUS:
      if (document_ && model_->Visible()) Activate(OLEIVERB_UIACTIVATE);
      return 0;
    case WM_CLOSE:
      model_->SetVisible(false);
      return 0;
    default:
      return DefWindowProcW(handle_, message, wParam, lParam);
  }
}

}  // namespace quorvane::container

#include "InPlaceSite.h"

#include <utility>

namespace quorvane::test {

InPlaceSite::InPlaceSite() {
  MakeWindow();
}

InPlaceSite::~InPlaceSite() {
  DestroyWindow();
}

void InPlaceSite::MakeWindow() {
  DestroyWindow();
  window_ = ::CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE, 40, 40, 500,
                              260, nullptr, nullptr, nullptr, nullptr);
}

void InPlaceSite::DestroyWindow() {
  if (window_ != nullptr) ::DestroyWindow(std::exchange(window_, nullptr));
}

RECT InPlaceSite::Place() const {
  RECT place{};
  ::GetClientRect(window_, &place);
  return place;
}

std::string InPlaceSite::Log() {
  return std::exchange(log_, {});
}

HRESULT InPlaceSite::Note(const char* what) {
  log_ += (log_.empty() ? "" : " ") + std::string(what);
  return S_OK;
}

HRESULT InPlaceSite::GetContainer(IOleContainer** container) {
  *container = nullptr;
  return E_NOINTERFACE;
}

HRESULT InPlaceSite::GetExtendedControl(IDispatch** control) {
  *control = nullptr;
  return E_NOTIMPL;
}

HRESULT InPlaceSite::GetWindow(HWND* window) {
  *window = window_;
  return window_ != nullptr ? S_OK : E_FAIL;
}

HRESULT InPlaceSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** outer, LPRECT place, LPRECT clip,
                                      LPOLEINPLACEFRAMEINFO info) {
  AddRef();
  *frame = this;
  *outer = nullptr;
  *place = *clip = Place();
  info->fMDIApp = FALSE;
  info->hwndFrame = window_;
  info->haccel = nullptr;
  info->cAccelEntries = 0;
  return S_OK;
}

HRESULT InPlaceSite::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
  return Note(object != nullptr ? "SetActiveObject" : "ClearActiveObject");
}

}  // namespace quorvane::test

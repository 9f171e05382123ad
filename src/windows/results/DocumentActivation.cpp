#include "windows/results/DocumentActivation.h"

#include <utility>

#include "windows/results/DocumentWindow.h"

namespace quorvane::windows {

using com::ComPtr;

DocumentActivation::DocumentActivation(IOleInPlaceActiveObject& object, std::function<DocumentWindow&()> window)
    : object_(object), window_(std::move(window)) {}

void DocumentActivation::SetSite(IOleClientSite* site) {
  site_ = ComPtr<IOleClientSite>(site);
}

HRESULT DocumentActivation::Activate(IOleClientSite* site, bool user) {
  const ComPtr<IOleClientSite> wanted = site != nullptr ? ComPtr<IOleClientSite>(site) : site_;
  if (!wanted) return E_UNEXPECTED;
  if (!place_) {
    const HRESULT entered = EnterPlace(*wanted);
    if (FAILED(entered)) return entered;
    wanted->ShowObject();
  } else {
    ::ShowWindow(window_().Handle(), SW_SHOWNA);
  }
  if (user) UserActivate();
  return S_OK;
}

HRESULT DocumentActivation::EnterPlace(IOleClientSite& site) {
  ComPtr<IOleInPlaceSite> place;
  HRESULT result = site.QueryInterface(IID_IOleInPlaceSite, place.PutVoid());
  if (FAILED(result)) return result;
  if (place->CanInPlaceActivate() != S_OK) return E_FAIL;
  HWND parent = nullptr;
  RECT rect{};
  RECT clip{};
  OLEINPLACEFRAMEINFO info{};
  info.cb = sizeof(info);
  ComPtr<IOleInPlaceFrame> frame;
  ComPtr<IOleInPlaceUIWindow> outer;
  result = place->OnInPlaceActivate();
  if (FAILED(result)) return result;
  result = place->GetWindow(&parent);
  if (SUCCEEDED(result)) result = place->GetWindowContext(frame.Put(), outer.Put(), &rect, &clip, &info);
  if (FAILED(result) || parent == nullptr) {
    place->OnInPlaceDeactivate();
    return FAILED(result) ? result : E_FAIL;
  }
  place_ = place;
  frame_ = std::move(frame);
  outer_ = std::move(outer);
  window_().PutInto(parent, rect, clip);
  return S_OK;
}

void DocumentActivation::TellFocus(bool has) const {
  if (const auto control = site_.As<IOleControlSite>()) control->OnFocus(has ? TRUE : FALSE);
}

void DocumentActivation::UserActivate() {
  if (!place_) return;
  if (!std::exchange(userActive_, true)) {
    const ComPtr<IOleInPlaceSite> place = place_;
    place->OnUIActivate();
    const ComPtr<IOleInPlaceFrame> frame = frame_;
    const ComPtr<IOleInPlaceUIWindow> outer = outer_;
    if (outer) outer->SetActiveObject(&object_, nullptr);
    if (frame) frame->SetActiveObject(&object_, nullptr);
    if (frame) frame->SetBorderSpace(nullptr);
    TellFocus(true);
  }
  if (userActive_) window_().TakeFocus();
}

void DocumentActivation::UserDeactivate() {
  if (!std::exchange(userActive_, false)) return;
  const ComPtr<IOleInPlaceSite> place = place_;
  const ComPtr<IOleInPlaceFrame> frame = frame_;
  const ComPtr<IOleInPlaceUIWindow> outer = outer_;
  if (outer) outer->SetActiveObject(nullptr, nullptr);
  if (frame) frame->SetActiveObject(nullptr, nullptr);
  TellFocus(false);
  if (place) place->OnUIDeactivate(FALSE);
}

void DocumentActivation::Deactivate() {
  if (!place_) return;
  UserDeactivate();
  const ComPtr<IOleInPlaceSite> place = std::exchange(place_, {});
  frame_.Reset();
  outer_.Reset();
  window_().Park();
  if (place) place->OnInPlaceDeactivate();
}

void DocumentActivation::Forget() {
  userActive_ = false;
  place_.Reset();
  frame_.Reset();
  outer_.Reset();
}

}  // namespace quorvane::windows

#pragma once

#include <functional>

#include "windows/com/ComPtr.h"

namespace quorvane::windows {

class DocumentWindow;

/// How far the host has taken a document in: held, in place in one of its windows, or the one that its user works in.
/// Each step is told to the host's site in the order that in-place activation asks for, and each call of the host may
/// come while another step is under way.
class DocumentActivation {
 public:
  /// `object` is what the host's frame is given as its active object. Both outlive this; the window may be another one
  /// each time.
  DocumentActivation(IOleInPlaceActiveObject& object, std::function<DocumentWindow&()> window);

  const com::ComPtr<IOleClientSite>& Site() const { return site_; }
  void SetSite(IOleClientSite* site);

  bool IsInPlace() const { return static_cast<bool>(place_); }
  bool IsUserActive() const { return userActive_; }

  /// Puts the window into the host's; on `site` when that is not null. With `user` the document gets the focus too.
  HRESULT Activate(IOleClientSite* site, bool user);
  void UserDeactivate();
  void Deactivate();
  /// The window has been destroyed with the host's own: nothing is left to take back.
  void Forget();

 private:
  HRESULT EnterPlace(IOleClientSite& site);
  void UserActivate();
  void TellFocus(bool has) const;

  IOleInPlaceActiveObject& object_;
  std::function<DocumentWindow&()> window_;
  com::ComPtr<IOleClientSite> site_;
  com::ComPtr<IOleInPlaceSite> place_;  ///< from activation to deactivation
  com::ComPtr<IOleInPlaceFrame> frame_;
  com::ComPtr<IOleInPlaceUIWindow> outer_;
  bool userActive_ = false;
};

}  // namespace quorvane::windows

#include "windows/bridge/Session.h"

#include <utility>

#include "base/Error.h"
#include "windows/bridge/BridgedAddins.h"
#include "windows/bridge/BridgedVBE.h"

namespace quorvane::bridge {

Session::Session(const com::ComPtr<IDispatch>& application, HostEpoch& epoch, DocumentFinder documents)
    : link_(std::make_shared<HostLink>(epoch, std::move(documents))) {
  if (!application) RaiseError(ErrorNumber::ObjectNotSet);
  application_ = link_->Wrap<BridgedVBE>(application);
}

Session::~Session() {
  End();
}

std::shared_ptr<vbide::VBE> Session::Application() const {
  return application_;
}

std::shared_ptr<vbide::AddIn> Session::AddIn(const com::ComPtr<IDispatch>& addIn) const {
  link_->SetOwnAddIn(addIn);
  return link_->Wrap<BridgedAddIn>(addIn);
}

void Session::End() {
  link_->End();
  application_.reset();
}

}  // namespace quorvane::bridge

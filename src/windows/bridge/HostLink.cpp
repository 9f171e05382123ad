#include "windows/bridge/HostLink.h"

#include <vector>

#include "windows/bridge/HostObject.h"

namespace quorvane::bridge {

std::shared_ptr<HostObject> HostLink::KnownAs(const com::ComPtr<IDispatch>& object) const {
  const auto found = known_.find(com::IdentityOf(object).Get());
  return found != known_.end() ? found->second.lock() : nullptr;
}

void HostLink::Enter(const std::shared_ptr<HostObject>& wrapper) {
  known_[wrapper->Identity()] = wrapper;
}

void HostLink::Renew(HostObject& wrapper, const com::ComPtr<IDispatch>& object) {
  const std::weak_ptr<HostObject> self = std::move(known_[wrapper.Identity()]);
  known_.erase(wrapper.Identity());
  wrapper.Take(object);
  known_[wrapper.Identity()] = self;
}

void HostLink::End() {
  known_.clear();
  named_.clear();
  ownAddIn_.Reset();
  // A release may let the host call in and make wrappers end.
  const std::vector<HostObject*> living(all_.begin(), all_.end());
  for (HostObject* const wrapper : living) {
    if (all_.count(wrapper) != 0) wrapper->Drop();
  }
}

}  // namespace quorvane::bridge

#include "windows/bridge/HostObject.h"

#include <utility>

namespace quorvane::bridge {

HostObject::HostObject(std::shared_ptr<HostLink> link, const com::ComPtr<IDispatch>& object) : link_(std::move(link)) {
  Take(object);
  link_->all_.insert(this);
}

HostObject::~HostObject() {
  link_->all_.erase(this);
  const auto known = link_->known_.find(Identity());
  if (known != link_->known_.end() && known->second.expired()) link_->known_.erase(known);
}

void HostObject::Take(const com::ComPtr<IDispatch>& object) {
  remote_ = com::LateBound(object, link_->Classes());
  identity_ = com::IdentityOf(object);
}

void HostObject::Drop() {
  const com::LateBound last = std::move(remote_);
  const com::ComPtr<IUnknown> identity = std::move(identity_);
  remote_ = {};
}

}  // namespace quorvane::bridge

#pragma once

#include <memory>

#include "windows/bridge/HostLink.h"

namespace quorvane::bridge {

/// What every wrapper is made of: the host's object, called by name, and the link.
class HostObject {
 public:
  HostObject(std::shared_ptr<HostLink> link, const com::ComPtr<IDispatch>& object);
  virtual ~HostObject();
  HostObject(const HostObject&) = delete;
  HostObject& operator=(const HostObject&) = delete;

  /// Nothing once the link has ended.
  IDispatch* Object() const { return remote_.Object(); }
  /// By which the host's object is told from others.
  IUnknown* Identity() const { return identity_.Get(); }

  /// Holds another object for the same thing from now on.
  void Take(const com::ComPtr<IDispatch>& object);
  /// Releases everything of the host's.
  virtual void Drop();

 protected:
  /// Raises error 91 when called once the link has ended.
  const com::LateBound& Remote() const { return remote_; }
  HostLink& Link() const { return *link_; }

  com::ComPtr<IDispatch> Get(const char16_t* name) const { return remote_.Call(name).ToObject(); }
  /// One wrapper of what the member gives.
  template <class Wrapper>
  std::shared_ptr<Wrapper> TheOne(const char16_t* name) const {
    return link_->TheWrapper<Wrapper>([&] { return Get(name); });
  }
  /// A wrapper of its own of what the member gives.
  template <class Wrapper>
  std::shared_ptr<Wrapper> One(const char16_t* name) const {
    return link_->Wrap<Wrapper>(Get(name));
  }

 private:
  std::shared_ptr<HostLink> link_;
  com::LateBound remote_;
  com::ComPtr<IUnknown> identity_;
};

}  // namespace quorvane::bridge

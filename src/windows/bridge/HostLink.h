#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <typeindex>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "windows/bridge/HostEpoch.h"
#include "windows/com/LateBound.h"

namespace quorvane::vbide {
class Document;
}

namespace quorvane::bridge {

class HostObject;

/// Finds the document behind what the host hands out as the content of a tool window, which may be the document's own
/// COM object or a wrapper of the host's; nothing when there is none.
using DocumentFinder = std::function<std::shared_ptr<vbide::Document>(const com::ComPtr<IDispatch>& handed)>;

/// What all wrappers of one connection share.
///
/// The logic knows a thing of the host by its pointer, so there is one wrapper for one thing. A thing is known by its
/// IUnknown, which its wrapper holds so that the address is not used for another one. Some hosts hand out a fresh
/// object at each call, or at some calls: the link finds that out by asking twice for an object it has not seen, and
/// from then on goes by names for that kind; the newer object then takes the older's place in the wrapper.
class HostLink final : public std::enable_shared_from_this<HostLink> {
 public:
  /// The epoch outlives the link and all wrappers.
  HostLink(HostEpoch& epoch, DocumentFinder documents) : epoch_(epoch), documents_(std::move(documents)) {}
  HostLink(const HostLink&) = delete;
  HostLink& operator=(const HostLink&) = delete;

  HostEpoch& Epoch() { return epoch_; }
  com::ClassIds& Classes() { return classes_; }
  const DocumentFinder& Documents() const { return documents_; }
  /// The host's record of this add-in as it came with the connection; nothing when none came.
  const com::ComPtr<IDispatch>& OwnAddIn() const { return ownAddIn_; }
  void SetOwnAddIn(const com::ComPtr<IDispatch>& addIn) { ownAddIn_ = addIn; }
  /// Never the same number twice, and never 0.
  std::uint64_t NextRevision() { return ++revision_; }

  /// A wrapper of its own; nothing for nothing.
  template <class Wrapper>
  std::shared_ptr<Wrapper> Wrap(const com::ComPtr<IDispatch>& object) {
    return object ? std::make_shared<Wrapper>(shared_from_this(), object) : nullptr;
  }

  /// The one wrapper of a thing; nothing for nothing. `ask` asks the host for the thing, which it may do twice. Wrapper
  /// gives `static std::u16string NameOf(const com::LateBound& object, com::ClassIds& classes)`, the name by which its
  /// things are told apart.
  template <class Wrapper, class Ask>
  std::shared_ptr<Wrapper> TheWrapper(Ask ask) {
    const com::ComPtr<IDispatch> object = ask();
    if (!object) return nullptr;
    if (auto known = std::dynamic_pointer_cast<Wrapper>(KnownAs(object))) return known;
    if (fresh_.count(typeid(Wrapper)) == 0) {
      if (com::IdentityOf(ask()).Get() == com::IdentityOf(object).Get()) return Entered<Wrapper>(object);
      NameKnown<Wrapper>();
    }
    const std::u16string name = Wrapper::NameOf(com::LateBound(object, classes_), classes_);
    std::weak_ptr<HostObject>& named = named_[{typeid(Wrapper), name}];
    if (auto known = std::dynamic_pointer_cast<Wrapper>(named.lock())) {
      Renew(*known, object);
      return known;
    }
    auto made = Entered<Wrapper>(object);
    named = made;
    return made;
  }

  /// Drops every reference to the host that a wrapper holds. A wrapper that someone still keeps raises error 91 from
  /// then on.
  void End();

 private:
  friend class HostObject;

  template <class Wrapper>
  std::shared_ptr<Wrapper> Entered(const com::ComPtr<IDispatch>& object) {
    auto made = std::make_shared<Wrapper>(shared_from_this(), object);
    Enter(made);
    return made;
  }
  std::shared_ptr<HostObject> KnownAs(const com::ComPtr<IDispatch>& object) const;
  void Enter(const std::shared_ptr<HostObject>& wrapper);
  void Renew(HostObject& wrapper, const com::ComPtr<IDispatch>& object);
  /// From now on things of this kind go by their names, those that have a wrapper included.
  template <class Wrapper>
  void NameKnown() {
    fresh_.insert(typeid(Wrapper));
    const auto known = known_;  // asking for a name calls the host
    for (const auto& [identity, entered] : known) {
      const auto wrapper = std::dynamic_pointer_cast<Wrapper>(entered.lock());
      if (!wrapper) continue;
      const com::LateBound object(com::ComPtr<IDispatch>(wrapper->Object()), classes_);
      named_[{typeid(Wrapper), Wrapper::NameOf(object, classes_)}] = wrapper;
    }
  }

  HostEpoch& epoch_;
  DocumentFinder documents_;
  com::ComPtr<IDispatch> ownAddIn_;
  com::ClassIds classes_;
  std::uint64_t revision_ = 0;
  std::unordered_set<HostObject*> all_;
  std::unordered_map<IUnknown*, std::weak_ptr<HostObject>> known_;  ///< by the IUnknown that the wrapper holds
  std::map<std::pair<std::type_index, std::u16string>, std::weak_ptr<HostObject>> named_;
  std::set<std::type_index> fresh_;  ///< kinds of which the host makes a new object at each call
};

}  // namespace quorvane::bridge

#pragma once

#include <memory>

#include "windows/bridge/HostLink.h"

namespace quorvane::vbide {
class AddIn;
class VBE;
}  // namespace quorvane::vbide

namespace quorvane::bridge {

/// One connection to a host: from the objects that it gave to the end of the last reference to it.
class Session {
 public:
  /// Raises error 91 for a host that gave no application. The epoch outlives the session and every wrapper that it
  /// handed out.
  Session(const com::ComPtr<IDispatch>& application, HostEpoch& epoch, DocumentFinder documents);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  std::shared_ptr<vbide::VBE> Application() const;
  /// The host's record of the add-in, as it came with the connection; nothing for nothing.
  std::shared_ptr<vbide::AddIn> AddIn(const com::ComPtr<IDispatch>& addIn) const;

  /// Releases all that is the host's, wherever its wrapper may still be kept: a call through one raises error 91 from
  /// then on. No clicks come any more.
  void End();

 private:
  std::shared_ptr<HostLink> link_;
  std::shared_ptr<vbide::VBE> application_;
};

}  // namespace quorvane::bridge

#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "base/Event.h"
#include "windows/bridge/HostEpoch.h"
#include "windows/com/ComPtr.h"
#include "windows/platform/WindowsPlatform.h"

namespace quorvane {
class Connect;

namespace bridge {
class Session;
}
}  // namespace quorvane

namespace quorvane::windows {

/// The add-in's code while it runs in a host: from the first object that the host makes of one of our classes until it
/// has let go of the last and nothing of ours stands on the stack. Then everything goes: the shared objects, every
/// reference to the host, hook, filter and windows. The next object starts it afresh.
class Code {
 public:
  ~Code();
  Code(const Code&) = delete;
  Code& operator=(const Code&) = delete;

  /// The one that runs; made at the first call. It belongs to the thread of that call: raises RPC_E_WRONG_THREAD on any
  /// other.
  static Code& The();
  static bool Running();
  /// Ends it, which nobody needs any more; on another thread than its own soon, at once where its own has ended.
  static void End();

  /// The host connects the add-in. Raises error 5 while it is connected. Where a disconnection is still waiting for its
  /// end, the connection comes after that, unless it is taken back before.
  void OnConnection(const com::ComPtr<IDispatch>& application, std::int32_t mode, const com::ComPtr<IDispatch>& addIn);
  /// The host lets the add-in go. Where that comes out of something of ours, such as the yield of a search, the
  /// settings are saved, tasks cancelled and windows hidden at once, and the rest happens when that has come to its
  /// end.
  void OnDisconnection(std::int32_t mode);

  ViewFactory& Views() { return platform_.Views(); }

 private:
  /// A connection that waits.
  struct Asked {
    com::ComPtr<IDispatch> application;
    std::int32_t mode;
    com::ComPtr<IDispatch> addIn;
  };

  Code();

  void Start(const com::ComPtr<IDispatch>& application, std::int32_t mode, const com::ComPtr<IDispatch>& addIn);
  void Stop(std::int32_t mode);
  void StopSoon();
  void StopAtRest(std::int32_t mode);
  void RouteKeys();

  WindowsPlatform platform_;
  bridge::HostEpoch epoch_;
  std::unique_ptr<bridge::Session> session_;
  std::shared_ptr<Connect> connect_;  ///< nothing unless connected
  bool stopping_ = false;             ///< the disconnection waits for its end
  std::optional<Asked> next_;         ///< what comes after that
  Subscription removed_;
};

}  // namespace quorvane::windows

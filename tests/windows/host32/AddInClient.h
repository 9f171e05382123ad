#pragma once

#include <string>

#include "windows/com/ComPtr.h"
#include "windows/host32/Options.h"

namespace quorvane::container {

/// One add-in as a host has it: made by its ProgID, told of connection and disconnection, released.
class AddInClient {
 public:
  explicit AddInClient(ConnectBy way) : way_(way) {}
  ~AddInClient();
  AddInClient(const AddInClient&) = delete;
  AddInClient& operator=(const AddInClient&) = delete;

  bool Loaded() const { return static_cast<bool>(object_); }
  /// Raises what the making or the connection answers; the add-in is released then.
  void Connect(const std::u16string& progId, const com::ComPtr<IDispatch>& application, long mode,
               const com::ComPtr<IDispatch>& addIn);
  /// Raises what the add-in answers; it is released all the same.
  void Disconnect(long mode);
  /// Releases it and tells it nothing.
  void Drop() { object_.Reset(); }

 private:
  void Tell(const char16_t* event, const com::ComPtr<IDispatch>& application, long mode,
            const com::ComPtr<IDispatch>& addIn);

  ConnectBy way_;
  com::ComPtr<IUnknown> object_;
};

}  // namespace quorvane::container

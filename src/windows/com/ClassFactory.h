#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "windows/com/ComObject.h"

namespace quorvane::com {

/// The class object of one coclass: makes its objects, none of which can be part of another (aggregated).
class ClassFactory final : public ComObject<IClassFactory> {
 public:
  /// Gives a new object; what it raises reaches the caller as a result.
  using Maker = std::function<ComPtr<IUnknown>()>;

  explicit ClassFactory(Maker maker) : maker_(std::move(maker)) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  Maker maker_;
};

}  // namespace quorvane::com

#include "windows/com/ClassFactory.h"

#include <atomic>

namespace quorvane::com {

namespace {

/// A class object may go before its locks do.
std::atomic<long> locks{0};

}  // namespace

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  HRESULT answer = E_FAIL;
  const HRESULT made = Guarded([&] { answer = Deref(maker_()).QueryInterface(iid, object); });
  return FAILED(made) ? made : answer;
}

HRESULT ClassFactory::LockServer(BOOL lock) {
  if (lock) {
    ++locks;
    ModuleReference::Take();
  } else if (--locks >= 0) {
    ModuleReference::Drop();
  } else {
    ++locks;  // there was none
  }
  return S_OK;
}

}  // namespace quorvane::com

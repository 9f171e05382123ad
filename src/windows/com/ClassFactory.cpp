#include "windows/com/ClassFactory.h"

#include <vector>

namespace quorvane::com {

namespace {

/// One for each lock; a class object may go before its locks do.
std::vector<std::unique_ptr<ModuleReference>>& Locks() {
  static std::vector<std::unique_ptr<ModuleReference>> locks;
  return locks;
}

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
  return Guarded([&] {
    if (lock) {
      Locks().push_back(std::make_unique<ModuleReference>());
    } else if (!Locks().empty()) {
      const std::unique_ptr<ModuleReference> last = std::move(Locks().back());
      Locks().pop_back();
    }
  });
}

}  // namespace quorvane::com

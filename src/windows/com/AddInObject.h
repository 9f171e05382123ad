#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "windows/com/DispatchObject.h"
#include "windows/com/IDTExtensibility2.h"

namespace quorvane::com {

/// What the host tells an add-in, however it does so. An error raised reaches the host as the result of its call.
class AddInListener {
 public:
  virtual ~AddInListener() = default;

  virtual void OnConnection(const ComPtr<IDispatch>& application, std::int32_t mode,
                            const ComPtr<IDispatch>& addIn) = 0;
  virtual void OnDisconnection(std::int32_t mode) = 0;
};

/// The object that the host makes of an add-in. It hands on connection and disconnection, whichever of these ways they
/// come: by the members of IDTExtensibility2, by dispatch under their names, or under the names that a designer's
/// events have (AddinInstance_OnConnection). A host may also ask for the older interface of four members, whose
/// identifier is not known here: one that the registry names IDTExtensibility is answered too, since it has the same
/// first two members and the rest of it say nothing that an add-in must know.
class AddInObject final : public DispatchObject<AddInObject, IDTExtensibility2> {
 public:
  explicit AddInObject(std::unique_ptr<AddInListener> listener) : listener_(std::move(listener)) {}

  static const std::vector<DispatchMember<AddInObject>>& Members();

  HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, LONG mode, IDispatch* addIn, SAFEARRAY**) override;
  HRESULT STDMETHODCALLTYPE OnDisconnection(LONG mode, SAFEARRAY**) override;
  HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY**) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY**) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY**) override { return S_OK; }

 protected:
  void* AnswerOther(REFIID iid) override;

 private:
  std::unique_ptr<AddInListener> listener_;
};

}  // namespace quorvane::com

#pragma once

#include <tuple>

#include "windows/com/ComObject.h"

/// The connection interface of an add-in, as it is public for all programs that take COM add-ins. `mode` is one of
/// vbide::ConnectMode or vbide::DisconnectMode; `custom` may be nothing.
struct IDTExtensibility2 : public IDispatch {
  virtual HRESULT STDMETHODCALLTYPE OnConnection(IDispatch* application, LONG mode, IDispatch* addIn,
                                                 SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnDisconnection(LONG mode, SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnAddInsUpdate(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnStartupComplete(SAFEARRAY** custom) = 0;
  virtual HRESULT STDMETHODCALLTYPE OnBeginShutdown(SAFEARRAY** custom) = 0;

 protected:
  ~IDTExtensibility2() = default;
};

__CRT_UUID_DECL(IDTExtensibility2, 0xB65AD801, 0xABAF, 0x11D0, 0xBB, 0x8B, 0x00, 0xA0, 0xC9, 0x0F, 0x27, 0x44)

namespace quorvane::com {

template <>
struct Above<IDTExtensibility2> {
  using Interfaces = std::tuple<IDispatch>;
};

}  // namespace quorvane::com

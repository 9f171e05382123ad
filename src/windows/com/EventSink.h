#pragma once

#include <functional>
#include <utility>

#include "windows/com/ComObject.h"

namespace quorvane::com {

class DispatchCall;

/// What a source calls: one event, by dispatch; all others are let pass.
class EventSink final : public ComObject<IDispatch> {
 public:
  EventSink(REFIID interfaceId, DISPID event, std::function<void(DispatchCall&)> handler)
      : interfaceId_(interfaceId), event_(event), handler_(std::move(handler)) {}

  /// Nothing is called from now on.
  void Stop() { handler_ = nullptr; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                   EXCEPINFO* exception, UINT*) override;

 protected:
  void* AnswerOther(REFIID iid) override;

 private:
  GUID interfaceId_;
  DISPID event_;
  std::function<void(DispatchCall&)> handler_;
};

}  // namespace quorvane::com

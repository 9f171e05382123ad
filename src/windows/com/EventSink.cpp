#include "windows/com/EventSink.h"

#include "windows/com/DispatchCall.h"

namespace quorvane::com {

HRESULT EventSink::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT EventSink::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
  if (info != nullptr) *info = nullptr;
  return E_NOTIMPL;
}

HRESULT EventSink::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                          EXCEPINFO* exception, UINT*) {
  if (arguments == nullptr) return E_INVALIDARG;
  if (id != event_ || !handler_) return S_OK;
  const Entry entry;
  const ComPtr<EventSink> alive(this);
  try {
    const auto handler = handler_;  // it may end the connection
    DispatchCall call(flags, *arguments, result);
    handler(call);
    return S_OK;
  } catch (...) {
    return Tell(CurrentError(), exception);
  }
}

void* EventSink::AnswerOther(REFIID iid) {
  return IsEqualIID(iid, interfaceId_) ? static_cast<IDispatch*>(this) : nullptr;
}

}  // namespace quorvane::com

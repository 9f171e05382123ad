#pragma once

#include <utility>

#include "base/Error.h"
#include "windows/com/Entry.h"
#include "windows/com/Win32.h"

namespace quorvane::com {

/// Our Error and the ways in which COM tells of failures, both ways. A small number n (1 to 65535) travels as
/// 0x800A0000 + n, the form that Visual Basic gives it; any other number is an HRESULT already and travels as it is.

HRESULT HResultOf(const Error& error);
/// The number that Visual Basic shows for `result`: for the results of IDispatch itself its own numbers (438 for a
/// member that is not there, 13 for a type mismatch), for 0x800Annnn the low word, else the result as it is.
std::int32_t NumberOf(HRESULT result);

/// Raises when `result` is a failure; its words are those that belong to the number, or Windows' own.
void Check(HRESULT result);
/// The error that a call of `IDispatch::Invoke` tells of. Frees what `exception` holds.
Error ErrorOf(HRESULT result, EXCEPINFO& exception);

/// Tells of `error` through `exception`, which may be nothing; the result to hand back from Invoke.
HRESULT Tell(const Error& error, EXCEPINFO* exception);
/// Tells of `error` as the thread's error object; the result to hand back from a member of an interface.
HRESULT Tell(const Error& error);

/// Runs what stands behind an entry that COM or Windows calls: no exception goes beyond it. What `body` raises becomes
/// the thread's error object and the result.
template <class Body>
HRESULT Guarded(Body&& body) noexcept {
  const Entry entry;
  try {
    std::forward<Body>(body)();
    return S_OK;
  } catch (...) {
    return Tell(CurrentError());
  }
}

}  // namespace quorvane::com

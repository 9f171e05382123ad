#pragma once

#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "base/Error.h"

namespace quorvane {

/// The top of an event of this room: a failure of the body is shown and goes no further.
template <class Body>
void Guarded(Body body) {
  try {
    body();
  } catch (...) {
    Deref(Globals::gobjErrorManager).ShowErr();
  }
}

}  // namespace quorvane

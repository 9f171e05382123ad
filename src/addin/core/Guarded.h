#pragma once

#include "addin/core/ErrorManager.h"

namespace quorvane {

/// The top of an event: a failure of the body is shown to the user and goes no further.
template <class Body>
void Guarded(Body&& body) {
  try {
    body();
  } catch (...) {
    ShowHandledError();
  }
}

}  // namespace quorvane

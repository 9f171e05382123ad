#include "addin/core/ErrBuffer.h"

namespace quorvane {

void ErrBuffer::Save() {
  saved_ = CurrentError();
}

void ErrBuffer::Raise() const {
  throw saved_;
}

}  // namespace quorvane

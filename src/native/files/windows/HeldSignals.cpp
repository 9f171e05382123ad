#include "native/files/HeldSignals.h"

namespace quorvane::native {

struct HeldSignals::Mask {};

HeldSignals::HeldSignals() : before_(nullptr) {}

HeldSignals::~HeldSignals() = default;

bool HeldSignals::Any() const {
  return false;
}

}  // namespace quorvane::native

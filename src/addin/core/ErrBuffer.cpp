#include "addin/core/ErrBuffer.h"

#include "addin/core/ObjStat.h"

namespace quorvane {

ErrBuffer::ErrBuffer() {
  ObjStat::AddObject(this);
}
ErrBuffer::~ErrBuffer() {
  ObjStat::RemoveObject(this);
}

void ErrBuffer::Save() {
  saved_ = CurrentError();
}

void ErrBuffer::Raise() const {
  throw saved_;
}

}  // namespace quorvane

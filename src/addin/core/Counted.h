#pragma once

#include "addin/core/ObjStat.h"

namespace quorvane {

/// Base of a class whose living objects ObjStat counts, by the class's ClassName.
template <class T>
class Counted {
 public:
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 protected:
  Counted() { ObjStat::Change(T::ClassName, 1); }
  ~Counted() { ObjStat::Change(T::ClassName, -1); }
};

}  // namespace quorvane

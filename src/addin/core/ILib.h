#pragma once

namespace quorvane {

/// A shared object that is told when all shared objects exist and when they are about to go.
class ILib {
 public:
  virtual ~ILib() = default;

  virtual void Setup() = 0;
  virtual void TearDown() = 0;
};

}  // namespace quorvane

#pragma once

namespace quorvane {

/// Sets a flag for as long as it lives. The flag outlives this.
class FlagScope {
 public:
  explicit FlagScope(bool& flag) : flag_(flag) { flag_ = true; }
  ~FlagScope() { flag_ = false; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;

 private:
  bool& flag_;
};

}  // namespace quorvane

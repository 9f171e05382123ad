#pragma once

namespace quorvane {

/// Sets a flag for as long as it lives, as in "I am the one who changes this"; then the flag is what it was before,
/// also when an error ends the scope. The flag outlives this.
class FlagScope {
 public:
  explicit FlagScope(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  ~FlagScope() { flag_ = before_; }
  FlagScope(const FlagScope&) = delete;
  FlagScope& operator=(const FlagScope&) = delete;

 private:
  bool& flag_;
  bool before_;
};

}  // namespace quorvane

#pragma once

#include <cstddef>

#include "native/regexp/TimeBudget.h"

struct _xsltTransformContext;

namespace quorvane::native {

/// While it lives, what this thread's stylesheet may take is limited: instructions, steps of XPath, depth of templates,
/// memory asked for, and time. Beyond that the transformation is stopped at its next instruction or step.
class TransformBudget {
 public:
  /// Of one run in `context`, which outlives this.
  explicit TransformBudget(_xsltTransformContext* context);
  ~TransformBudget();
  TransformBudget(const TransformBudget&) = delete;
  TransformBudget& operator=(const TransformBudget&) = delete;

  bool Exceeded() const;

 private:
  friend struct CountedMemory;
  /// False when the library shall not even get this many bytes.
  bool Charge(std::size_t bytes);
  void Stop();

  _xsltTransformContext* context_;
  TransformBudget* outer_;
  TimeBudget time_;
  std::size_t bytes_ = 0;  ///< asked for so far; what was given back counts too
  unsigned calls_ = 0;
  bool stopped_ = false;
};

}  // namespace quorvane::native

#pragma once

#include <memory>

#include "cli/Options.h"

namespace quorvane::cli {

class Output;
class ResultPage;

/// Tells the results of a page in one format as they come.
class Reporter {
 public:
  virtual ~Reporter() = default;

  /// What is told when the search has ended, also when it was cancelled.
  virtual void Finish() {}
  /// The same when it has ended with an error.
  virtual void Cut() {}
};

/// Both `page` and `output` outlive the reporter; it listens to the page from now on.
std::unique_ptr<Reporter> NewReporter(const Options& options, ResultPage& page, Output& output);

}  // namespace quorvane::cli

#pragma once

#include <string>
#include <string_view>

#include "workbench/find/LineMatcher.h"

namespace quorvane::workbench {

/// Finds a text as it stands; an empty one nowhere.
class PlainMatcher final : public LineMatcher {
 public:
  PlainMatcher(std::u16string_view target, const MatchOptions& options);

  bool Next(std::u16string_view line, std::size_t from, std::size_t to, LineMatch& match) const override;
  std::string_view AsciiRun() const override { return asciiRun_; }
  bool NeedsBeyondAscii() const override { return needsBeyondAscii_; }

 private:
  bool MatchesAt(std::u16string_view line, std::size_t at) const;

  std::u16string target_;  ///< folded unless the case has to match
  MatchOptions options_;
  std::string asciiRun_;
  bool needsBeyondAscii_ = false;
};

}  // namespace quorvane::workbench

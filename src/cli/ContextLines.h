#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace quorvane {
class PositionInfo;
namespace vbide {
class CodeModule;
}
}  // namespace quorvane

namespace quorvane::cli {

/// The lines around matches: each once, in the order of the module, never a line that is told as a match. Where lines
/// are left out between two groups stands a line "--". All texts are UTF-8 and end with a line feed.
class ContextLines {
 public:
  static constexpr std::string_view kPrefixColor = "\033[36m";
  static constexpr std::string_view kPlain = "\033[0m";

  /// Number of lines before and after each match.
  ContextLines(std::int32_t before, std::int32_t after, bool color) : before_(before), after_(after), color_(color) {}

  /// What stands between the match before, if any, and `match`, whose own line is told next.
  std::string Before(const PositionInfo& match);
  /// What stands after the last match.
  std::string Rest();

 private:
  void AppendUntil(std::int32_t end, std::string& out);
  void AppendLine(std::int32_t line, std::string& out) const;

  const std::int32_t before_;
  const std::int32_t after_;
  const bool color_;
  std::shared_ptr<vbide::CodeModule> code_;  ///< of the last match
  std::u16string where_;                     ///< "Project\Component\" of it
  std::int32_t told_ = 0;                    ///< the last line told of it
  std::int32_t until_ = 0;                   ///< the last line to be told after it
};

}  // namespace quorvane::cli

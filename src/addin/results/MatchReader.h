#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quorvane {

class PositionInfo;

/// Reads the fields of one match. What several of them need is read from the host once: the host must not change
/// meanwhile.
class MatchReader {
 public:
  /// `position` must outlive this.
  explicit MatchReader(const PositionInfo& position) : position_(position) {}

  const PositionInfo& Position() const { return position_; }
  /// The text of line Y1.
  const std::u16string& Line();

  /// Each raises what the member of PositionInfo of that name raises.
  std::int32_t ScreenX1();
  std::int32_t ScreenX2();
  std::u16string MatchStr();
  std::int32_t RelativeStartPos();
  std::int32_t RelativeEndPos();

 private:
  bool IsOnOneLine() const;

  const PositionInfo& position_;
  std::optional<std::u16string> line_;
  std::optional<std::int32_t> relativeStart_;
};

}  // namespace quorvane

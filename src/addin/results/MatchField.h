#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane {

class MatchReader;

/// What the result document tells of one match, in the order in which it tells it.
enum class MatchField : std::size_t {
  ID,
  Y1,
  Y2,
  X1,
  X2,
  ScreenX1,
  ScreenX2,
  StartPos,
  EndPos,
  MatchStr,
  ComponentName,
  ProjectName,
  RelativeStartPos,
  RelativeEndPos,
  ProcName,
  ProcType,
  Line,
};

inline constexpr std::size_t kMatchFieldCount = 17;

/// One of them: the name of its attribute, and how it is read. One of the two readers is null.
struct MatchFieldInfo {
  std::string_view Name;
  std::int32_t (*Number)(MatchReader&) = nullptr;
  std::u16string (*Text)(MatchReader&) = nullptr;

  bool IsNumber() const { return Number != nullptr; }
};

/// All of them by MatchField.
const std::array<MatchFieldInfo, kMatchFieldCount>& MatchFields();

}  // namespace quorvane

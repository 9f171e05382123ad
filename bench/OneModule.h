#pragma once

#include <cstdint>
#include <string>

namespace quorvane::bench {

/// The text that each line of OneModuleText holds exactly once.
inline constexpr char kNeedle[] = "needle";

/// The code of one standard module, without header: `lines` lines joined by CR LF, each with one `needle`, in
/// procedures of 50 lines, and no line end behind the last.
inline std::string OneModuleText(std::int64_t lines) {
  constexpr std::int64_t kProcedure = 50;
  std::string text;
  text.reserve(static_cast<std::size_t>(lines) * 44);
  for (std::int64_t i = 0; i < lines; ++i) {
    const std::string number = std::to_string(i);
    if (i > 0) text += "\r\n";
    if (i % kProcedure == 0) {
      text += "Public Sub Use_needle_" + number + "(ByVal lngRow As Long)";
    } else if (i % kProcedure == kProcedure - 1 || i == lines - 1) {
      text += "End Sub ' needle " + number;
    } else if (i % 7 == 0) {
      text += "    ' row " + number + " of the needle, as it was";
    } else {
      text += "    lngSum = lngSum + needle(lngRow, " + number + ")";
    }
  }
  return text;
}

}  // namespace quorvane::bench

#pragma once

namespace quorvane::cli {

inline constexpr int kStatusFound = 0;  ///< something found, replaced or listed
inline constexpr int kStatusNothing = 1;
inline constexpr int kStatusError = 2;
inline constexpr int kStatusCanceled = 130;

}  // namespace quorvane::cli

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "addin/core/Counted.h"

namespace quorvane {

/// Error numbers of the system itself.
inline constexpr std::int32_t kErrRegistry = static_cast<std::int32_t>(0x80040001);
inline constexpr std::int32_t kErrReplaceMode = static_cast<std::int32_t>(0x80040200);
inline constexpr std::int32_t kErrUserCanceled = static_cast<std::int32_t>(0x80040201);
inline constexpr std::int32_t kErrNoCodePane = static_cast<std::int32_t>(0x80040202);
inline constexpr std::int32_t kErrNoVersion = static_cast<std::int32_t>(0x80040400);

/// Tells the user of the error being handled, and raises the system's own. Has no state.
class ErrorManager : private Counted<ErrorManager> {
 public:
  static constexpr std::string_view ClassName = "ErrorManager";

  /// Shows the error that is being handled; to be called in a catch clause. Silent outside of one and for a cancel.
  void ShowErr() const;
  /// The current error as three lines of text.
  std::u16string GetErrStr() const;
  /// Raises an error of the system; "%0" in `msg` takes the first of `arg`, "%1" the second and so on, upward.
  [[noreturn]] void Raise(std::int32_t e, std::u16string_view msg, const std::vector<std::u16string>& arg = {}) const;
  /// Raises the current error again; does nothing when there is none.
  void RaiseAgain() const;
};

/// Shows the error that is being handled, also before the shared ErrorManager is there and after its end.
void ShowHandledError();

}  // namespace quorvane

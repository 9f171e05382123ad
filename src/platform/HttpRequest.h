#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/Event.h"

namespace quorvane {

/// Errors of a request, by the platform's numbers.
inline constexpr std::int32_t kHttpTimeout = static_cast<std::int32_t>(0x80072EE2);
inline constexpr std::int32_t kHttpCannotConnect = static_cast<std::int32_t>(0x80072EFD);
inline constexpr std::int32_t kHttpConnectionLost = static_cast<std::int32_t>(0x80072EFE);
inline constexpr std::int32_t kHttpBodyTooLarge = static_cast<std::int32_t>(0x80072F19);

/// Limits of every implementation: a longer body and a longer wait each end the request with OnError.
inline constexpr std::size_t kHttpBodyLimit = 1024 * 1024;  // bytes
inline constexpr std::int32_t kHttpTimeLimit = 30;          // seconds, from Send to the end of the body

/// One asynchronous web request at a time. Its events come on the caller's thread, out of the message loop and never
/// out of Send or Abort; each sent request ends in one of them, or in none when it was aborted.
class HttpRequest {
 public:
  virtual ~HttpRequest() = default;

  /// Names the request; one that is still under way is aborted. Raises for an address that is none.
  virtual void Open(std::u16string_view verb, const std::u16string& url, bool async) = 0;
  virtual void Send() = 0;
  /// No event follows. Does nothing when nothing is under way.
  virtual void Abort() = 0;
  /// The body of the last response, whatever its status.
  virtual std::u16string ResponseText() const = 0;

  Event<> OnResponseFinished;                          ///< the body has arrived in full
  Event<std::int32_t, const std::u16string&> OnError;  ///< ErrorNumber, ErrorDescription
};

}  // namespace quorvane

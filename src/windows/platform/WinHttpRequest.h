#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/HttpRequest.h"

namespace quorvane::windows {

/// Web requests over WinHTTP. Its callbacks come on threads of its own and only post a message; everything else happens
/// on the thread that made this. An error status of the server is a response like any other; what keeps the response
/// from coming is an error.
class WinHttpRequest final : public HttpRequest {
 public:
  /// `limit` is the time from Send to the end of the body.
  explicit WinHttpRequest(std::chrono::milliseconds limit = std::chrono::seconds(kHttpTimeLimit));
  /// Waits a moment for WinHTTP to let go of its callback. Where it does not, this program's file stays in memory.
  ~WinHttpRequest() override;

  void Open(std::u16string_view verb, const std::u16string& url, bool async) override;
  void Send() override;
  void Abort() override;
  std::u16string ResponseText() const override { return text_; }

 private:
  class Receiver;
  class Connection;

  void Start();
  void OnProgress(std::uint32_t kind, std::uint32_t value);
  void Collect(std::uint32_t bytes);
  void Finish();
  void Fail(std::int32_t number, const std::u16string& description);
  void FailWith(std::uint32_t windowsNumber);

  std::chrono::milliseconds limit_;
  std::u16string verb_;
  std::u16string host_;
  std::u16string path_;
  std::uint16_t port_ = 0;
  bool secure_ = false;
  bool answered_ = false;  ///< headers of the response have come
  std::string body_;
  std::u16string text_;
  std::unique_ptr<Receiver> receiver_;
  std::unique_ptr<Connection> connection_;  ///< nothing when nothing is under way
  std::uint32_t turn_ = 0;                  ///< number of the request under way; messages of others are late
  std::uint32_t clock_ = 0;                 ///< timer of the limit
};

}  // namespace quorvane::windows

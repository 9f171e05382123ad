#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <chrono>
#include <memory>
#include <string>

#include "platform/HttpRequest.h"

class QNetworkReply;

namespace quorvane::desktop {

/// Web requests over the toolkit's network stack. An error status of the server is a response like any other; what
/// keeps the response from coming is an error.
class QtHttpRequest final : public HttpRequest {
 public:
  /// `limit` is the time from Send to the end of the body.
  explicit QtHttpRequest(std::chrono::milliseconds limit = std::chrono::seconds(kHttpTimeLimit));
  ~QtHttpRequest() override;

  void Open(std::u16string_view verb, const std::u16string& url, bool async) override;
  void Send() override;
  void Abort() override;
  std::u16string ResponseText() const override { return text_; }

 private:
  void Collect();
  void Finish();
  void Fail(std::int32_t number, const std::u16string& description);

  QNetworkAccessManager network_;
  QTimer clock_;
  QByteArray verb_;
  QUrl url_;
  QPointer<QNetworkReply> reply_;  ///< nothing when nothing is under way
  QByteArray body_;
  std::u16string text_;
};

}  // namespace quorvane::desktop

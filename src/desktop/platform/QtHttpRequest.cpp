#include "desktop/platform/QtHttpRequest.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QStringDecoder>
#include <utility>

#include "base/Error.h"
#include "desktop/platform/QtText.h"

namespace quorvane::desktop {

namespace {

constexpr std::int32_t kInvalidUrl = static_cast<std::int32_t>(0x80072EE5);

bool HasStatus(const QNetworkReply& reply) {
  return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid();
}

/// Whether the whole body arrived: errors from 201 on tell of a status of the server.
bool IsComplete(const QNetworkReply& reply) {
  return reply.error() == QNetworkReply::NoError ||
         (HasStatus(reply) && reply.error() >= QNetworkReply::ContentAccessDenied);
}

std::u16string DecodeBody(const QByteArray& body, const QString& contentType) {
  const qsizetype at = contentType.indexOf(QLatin1String("charset="), 0, Qt::CaseInsensitive);
  QByteArray charset = at < 0 ? QByteArray() : contentType.mid(at + 8).section(QLatin1Char(';'), 0, 0).toLatin1();
  charset = charset.trimmed().replace('"', "");
  QStringDecoder decoder(charset.isEmpty() ? "UTF-8" : charset.constData());
  if (!decoder.isValid()) decoder = QStringDecoder(QStringDecoder::Utf8);
  return FromQString(QString(decoder(body)));
}

}  // namespace

QtHttpRequest::QtHttpRequest(std::chrono::milliseconds limit) {
  clock_.setSingleShot(true);
  clock_.setInterval(limit);
  QObject::connect(&clock_, &QTimer::timeout, &clock_,
                   [this] { Fail(kHttpTimeout, u"The server did not answer in time"); });
}

QtHttpRequest::~QtHttpRequest() {
  Abort();
}

void QtHttpRequest::Open(std::u16string_view verb, const std::u16string& url, bool) {
  Abort();
  const QUrl wanted(ToQString(url), QUrl::StrictMode);
  const bool web = wanted.scheme() == QLatin1String("http") || wanted.scheme() == QLatin1String("https");
  if (!wanted.isValid() || !web || wanted.host().isEmpty()) throw Error(kInvalidUrl, u"No web address: " + url);
  verb_ = ToQString(verb).toLatin1();
  url_ = wanted;
}

void QtHttpRequest::Send() {
  if (!url_.isValid() || url_.isEmpty()) RaiseError(ErrorNumber::InvalidProcedureCall);
  Abort();
  body_.clear();
  QNetworkReply* reply = network_.sendCustomRequest(QNetworkRequest(url_), verb_);
  reply_ = reply;
  QObject::connect(reply, &QNetworkReply::readyRead, &clock_, [this] { Collect(); });
  // Queued, so that nothing comes out of Send, however soon a request fails.
  QObject::connect(
      reply, &QNetworkReply::finished, &clock_,
      [this, reply] {
        if (reply_ == reply) Finish();
      },
      Qt::QueuedConnection);
  clock_.start();
}

void QtHttpRequest::Abort() {
  clock_.stop();
  if (!reply_) return;
  QNetworkReply* reply = std::exchange(reply_, nullptr);
  reply->disconnect(&clock_);
  reply->abort();
  reply->deleteLater();
}

void QtHttpRequest::Collect() {
  if (!reply_) return;
  body_ += reply_->read(static_cast<qint64>(kHttpBodyLimit) + 1 - body_.size());
  if (static_cast<std::size_t>(body_.size()) > kHttpBodyLimit) Fail(kHttpBodyTooLarge, u"The page is too large");
}

void QtHttpRequest::Finish() {
  Collect();
  if (!reply_) return;
  if (!IsComplete(*reply_)) {
    const bool lost = reply_->error() == QNetworkReply::RemoteHostClosedError || HasStatus(*reply_);
    return Fail(lost ? kHttpConnectionLost : kHttpCannotConnect, FromQString(reply_->errorString()));
  }
  text_ = DecodeBody(body_, reply_->header(QNetworkRequest::ContentTypeHeader).toString());
  Abort();
  OnResponseFinished.Raise();
}

void QtHttpRequest::Fail(std::int32_t number, const std::u16string& description) {
  Abort();
  OnError.Raise(number, description);
}

}  // namespace quorvane::desktop

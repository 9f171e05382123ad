#pragma once

#include <QByteArray>
#include <QTcpServer>
#include <QTcpSocket>
#include <string>
#include <utility>

#include "base/Text.h"

namespace quorvane::desktop {

/// A web server on this machine that gives one answer to whatever it is asked.
class HttpServer {
 public:
  /// The bytes of the answer; without a hang-up the connection stays open behind them.
  explicit HttpServer(QByteArray answer, bool hangUp = true) : answer_(std::move(answer)), hangUp_(hangUp) {
    server_.listen(QHostAddress::LocalHost);
    port_ = server_.serverPort();
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
      QTcpSocket* socket = server_.nextPendingConnection();
      QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
        request += socket->readAll();
        if (!request.contains("\r\n\r\n")) return;
        socket->write(answer_);
        if (hangUp_) socket->disconnectFromHost();
      });
    });
  }

  /// Nobody listens there any more.
  void Close() { server_.close(); }

  std::u16string Host() const { return u"127.0.0.1:" + ToText(port_); }
  std::u16string Url() const { return u"http://" + Host() + u"/wiki/Update"; }

  QByteArray request;

 private:
  QTcpServer server_;
  QByteArray answer_;
  bool hangUp_;
  std::uint16_t port_ = 0;
};

inline QByteArray Response(const QByteArray& body, const QByteArray& status = "200 OK",
                           const QByteArray& type = "text/html; charset=utf-8") {
  return "HTTP/1.1 " + status + "\r\nContent-Type: " + type + "\r\nContent-Length: " + QByteArray::number(body.size()) +
         "\r\nConnection: close\r\n\r\n" + body;
}

/// A response that ends before its body does.
inline constexpr char kCutResponse[] = "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n5.0.0.0";

}  // namespace quorvane::desktop

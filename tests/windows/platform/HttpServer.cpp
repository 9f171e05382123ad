#include <winsock2.h>
//
#include "base/Text.h"
#include "windows/platform/HttpServer.h"

namespace quorvane::test {

namespace {

/// Waits a moment for something to read; the server looks now and then whether it is to end.
bool Readable(SOCKET socket) {
  fd_set set;
  FD_ZERO(&set);
  FD_SET(socket, &set);
  timeval moment{0, 20000};
  return ::select(0, &set, nullptr, nullptr, &moment) > 0;
}

}  // namespace

HttpServer::HttpServer(std::string response, Then then) : response_(std::move(response)), then_(then) {
  WSADATA data;
  ::WSAStartup(MAKEWORD(2, 2), &data);
  listener_ = ::socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in place{};
  place.sin_family = AF_INET;
  place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  ::bind(listener_, reinterpret_cast<sockaddr*>(&place), sizeof(place));
  int size = sizeof(place);
  ::getsockname(listener_, reinterpret_cast<sockaddr*>(&place), &size);
  port_ = ntohs(place.sin_port);
  ::listen(listener_, 5);
  thread_ = std::thread([this] { Serve(); });
}

HttpServer::~HttpServer() {
  Close();
  ::WSACleanup();
}

std::u16string HttpServer::Url() const {
  return u"http://127.0.0.1:" + ToText(static_cast<std::int64_t>(port_)) + u"/wiki/Update";
}

void HttpServer::Close() {
  ended_ = true;
  if (!thread_.joinable()) return;
  thread_.join();
  ::closesocket(listener_);
}

void HttpServer::Serve() {
  while (!ended_) {
    if (!Readable(listener_)) continue;
    const SOCKET client = ::accept(listener_, nullptr, nullptr);
    if (client == INVALID_SOCKET) continue;
    ServeOne(client);
    ::closesocket(client);
  }
}

void HttpServer::ServeOne(std::uintptr_t client) {
  std::string request;
  char buffer[1024];
  while (!ended_ && request.find("\r\n\r\n") == request.npos) {
    if (!Readable(client)) continue;
    const int length = ::recv(client, buffer, sizeof(buffer), 0);
    if (length <= 0) return;
    request.append(buffer, static_cast<std::size_t>(length));
  }
  request_ = request;
  for (std::size_t sent = 0; sent < response_.size();) {
    const int length = ::send(client, response_.data() + sent, static_cast<int>(response_.size() - sent), 0);
    if (length <= 0) return;
    sent += static_cast<std::size_t>(length);
  }
  while (then_ == Then::Wait && !ended_) ::Sleep(10);
}

std::string Response(const std::string& body, const std::string& status, const std::string& type) {
  return "HTTP/1.1 " + status + "\r\nContent-Type: " + type + "\r\nContent-Length: " + std::to_string(body.size()) +
         "\r\nConnection: close\r\n\r\n" + body;
}

}  // namespace quorvane::test

#pragma once

#include <atomic>
#include <string>
#include <thread>

namespace quorvane::test {

/// A server on this machine that answers one request after the other with the same bytes.
class HttpServer {
 public:
  enum class Then { HangUp, Wait };

  explicit HttpServer(std::string response, Then then = Then::HangUp);
  ~HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

  std::u16string Url() const;
  /// Nobody listens any more.
  void Close();
  /// What came last; to be read after the end of a request.
  const std::string& Request() const { return request_; }

 private:
  void Serve();
  void ServeOne(std::uintptr_t client);

  std::string response_;
  Then then_;
  std::uintptr_t listener_;
  int port_ = 0;
  std::string request_;
  std::atomic<bool> ended_{false};
  std::thread thread_;
};

/// A whole response.
std::string Response(const std::string& body, const std::string& status = "200 OK",
                     const std::string& type = "text/html");

}  // namespace quorvane::test

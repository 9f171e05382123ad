#include <chrono>

#include "base/Error.h"
#include "base/Text.h"
#include "support/Raised.h"
#include "windows/platform/HttpServer.h"
#include "windows/platform/PlatformFixture.h"
#include "windows/platform/WinHttpRequest.h"

namespace quorvane::test {

using namespace std::chrono_literals;
using windows::WinHttpRequest;

class WinHttpRequestTest : public PlatformFixture {
 protected:
  /// Sends a request and waits for its end: "finished: <body>" or "error: <number>".
  static std::string Outcome(WinHttpRequest& request, const std::u16string& url) {
    std::string outcome;
    const auto done =
        request.OnResponseFinished.Subscribe([&] { outcome = "finished: " + ToUtf8(request.ResponseText()); });
    const auto failed = request.OnError.Subscribe([&](std::int32_t number, const std::u16string& words) {
      outcome = (words.empty() ? "error without words: " : "error: ") + std::to_string(number & 0xFFFF);
    });
    request.Open(u"GET", url, true);
    request.Send();
    EXPECT_EQ(outcome, "") << "an event came out of Send";
    Pump([&] { return !outcome.empty(); });
    return outcome;
  }
};

TEST_F(WinHttpRequestTest, GivesTheBodyWhateverTheStatus) {
  const std::string largest(kHttpBodyLimit, 'x');
  const struct {
    std::string response;
    std::string outcome;
  } rows[] = {
      {Response("Version: 4.14.0"), "finished: Version: 4.14.0"},
      {Response(""), "finished: "},
      {Response("gone", "404 Not Found"), "finished: gone"},
      {Response("\xE7\x89\x88 1.0"), "finished: \xE7\x89\x88 1.0"},
      {Response("\xE9", "200 OK", "text/html; charset=ISO-8859-1"), "finished: \xC3\xA9"},
      {Response("\xB0\xE6", "200 OK", "text/html; Charset=\"gb2312\""), "finished: \xE7\x89\x88"},
      {Response(largest), "finished: " + largest},
  };
  for (const auto& row : rows) {
    HttpServer server(row.response);
    WinHttpRequest request;
    EXPECT_EQ(Outcome(request, server.Url()), row.outcome) << row.response.substr(0, 200);
    EXPECT_TRUE(server.Request().starts_with("GET /wiki/Update HTTP/1.1\r\n")) << server.Request();
  }
}

TEST_F(WinHttpRequestTest, EndsInAnErrorWhenTheBodyDoesNotCome) {
  const std::string cut = "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nonly this";
  const struct {
    std::string response;
    HttpServer::Then then;
    bool closed;
    std::int32_t error;
  } rows[] = {
      {Response(std::string(kHttpBodyLimit + 1, 'x')), HttpServer::Then::HangUp, false, kHttpBodyTooLarge},
      {cut, HttpServer::Then::Wait, false, kHttpTimeout},
      {cut, HttpServer::Then::HangUp, false, kHttpConnectionLost},
      {"", HttpServer::Then::HangUp, false, kHttpConnectionLost},
      {"", HttpServer::Then::HangUp, true, kHttpCannotConnect},
  };
  for (const auto& row : rows) {
    HttpServer server(row.response, row.then);
    if (row.closed) server.Close();
    WinHttpRequest request(row.then == HttpServer::Then::Wait ? 300ms : 30000ms);
    EXPECT_EQ(Outcome(request, server.Url()), "error: " + std::to_string(row.error & 0xFFFF));
  }
}

TEST_F(WinHttpRequestTest, AnAbortedRequestIsSilentAndTheNextOneWorks) {
  HttpServer server(Response("one"));
  auto request = std::make_unique<WinHttpRequest>();
  int events = 0;
  const auto done = request->OnResponseFinished.Subscribe([&] { ++events; });
  const auto failed = request->OnError.Subscribe([&](std::int32_t, const std::u16string&) { ++events; });
  request->Open(u"GET", server.Url(), true);
  request->Send();
  request->Abort();
  ::Sleep(200);
  PumpAll();
  EXPECT_EQ(events, 0);
  request->Send();
  EXPECT_TRUE(Pump([&] { return events > 0; }));
  EXPECT_EQ(request->ResponseText(), u"one");
  const auto dropped = request->OnResponseFinished.Subscribe([&] { request.reset(); });
  request->Send();
  EXPECT_TRUE(Pump([&] { return !request; })) << "a handler may drop the request";
  EXPECT_EQ(events, 2);
}

TEST_F(WinHttpRequestTest, RefusesWhatIsNoWebAddress) {
  WinHttpRequest request;
  EXPECT_EQ(Raised([&] { request.Send(); }), 5);
  for (const char16_t* url : {u"", u"example.com/x", u"file:///etc/passwd", u"http://"}) {
    EXPECT_THROW(request.Open(u"GET", url, true), Error) << ToUtf8(url);
  }
}

}  // namespace quorvane::test

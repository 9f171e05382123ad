#include <gtest/gtest.h>

#include <QTest>
#include <memory>

#include "HttpServer.h"
#include "QtFixture.h"
#include "base/Error.h"
#include "desktop/platform/QtHttpRequest.h"

namespace quorvane::desktop {
namespace {

using namespace std::chrono_literals;

class QtHttpRequestTest : public QtTest {
 protected:
  /// Sends a request and waits for its end; "finished: <body>", "error: <number>", or "nothing" after a second.
  std::string Outcome(QtHttpRequest& request, const std::u16string& url) {
    std::string outcome = "nothing";
    const auto done =
        request.OnResponseFinished.Subscribe([&] { outcome = "finished: " + ToUtf8(request.ResponseText()); });
    const auto failed = request.OnError.Subscribe([&](std::int32_t number, const std::u16string& words) {
      outcome = (words.empty() ? "error without words: " : "error: ") + std::to_string(number & 0xFFFF);
    });
    request.Open(u"GET", url, true);
    request.Send();
    EXPECT_EQ(outcome, "nothing") << "an event came out of Send";
    WaitUntil([&] { return outcome != "nothing"; }, 1s);
    return outcome;
  }
};

TEST_F(QtHttpRequestTest, GivesTheBodyWhateverTheStatus) {
  struct Case {
    QByteArray response;
    std::string outcome;
  };
  const Case cases[] = {
      {Response("Version: 4.14.0"), "finished: Version: 4.14.0"},
      {Response(""), "finished: "},
      {Response("gone", "404 Not Found"), "finished: gone"},
      {Response("sorry", "500 Internal Server Error"), "finished: sorry"},
      {Response("\xE7\x89\x88 1.0"), "finished: \xE7\x89\x88 1.0"},
      {Response("\xE9", "200 OK", "text/html; charset=ISO-8859-1"), "finished: \xC3\xA9"},
  };
  for (const Case& row : cases) {
    HttpServer server(row.response);
    QtHttpRequest request;
    EXPECT_EQ(Outcome(request, server.Url()), row.outcome) << row.response.constData();
    EXPECT_TRUE(server.request.startsWith("GET /wiki/Update HTTP/1.1\r\n")) << server.request.constData();
  }
}

TEST_F(QtHttpRequestTest, EndsInAnErrorWhenTheBodyDoesNotCome) {
  const struct {
    QByteArray response;
    bool hangUp, closed;
    std::int32_t error;
  } rows[] = {
      {Response(QByteArray(static_cast<qsizetype>(kHttpBodyLimit) + 1, 'x')), true, false, kHttpBodyTooLarge},
      {kCutResponse, false, false, kHttpTimeout},
      {kCutResponse, true, false, kHttpConnectionLost},
      {Response(""), true, true, kHttpCannotConnect},
  };
  for (const auto& row : rows) {
    HttpServer server(row.response, row.hangUp);
    if (row.closed) server.Close();
    QtHttpRequest request(row.hangUp ? 30s : 100ms);
    EXPECT_EQ(Outcome(request, server.Url()), "error: " + std::to_string(row.error & 0xFFFF));
  }
}

TEST_F(QtHttpRequestTest, TakesABodyOfTheGreatestLength) {
  HttpServer server(Response(QByteArray(static_cast<qsizetype>(kHttpBodyLimit), 'x')));
  QtHttpRequest request;
  EXPECT_EQ(Outcome(request, server.Url()).size(), std::string("finished: ").size() + kHttpBodyLimit);
}

TEST_F(QtHttpRequestTest, AbortedRequestIsSilentAndTheNextOneWorks) {
  HttpServer server(Response("one"));
  QtHttpRequest request;
  int events = 0;
  const auto done = request.OnResponseFinished.Subscribe([&] { ++events; });
  const auto failed = request.OnError.Subscribe([&](std::int32_t, const std::u16string&) { ++events; });
  request.Open(u"GET", server.Url(), true);
  request.Send();
  request.Abort();
  QTest::qWait(100);
  EXPECT_EQ(events, 0);

  request.Send();
  WaitUntil([&] { return events > 0; }, 1s);
  EXPECT_EQ(events, 1);
  EXPECT_EQ(request.ResponseText(), u"one");
}

TEST_F(QtHttpRequestTest, HandlerMayDropTheRequest) {
  HttpServer server(Response("one"));
  auto request = std::make_unique<QtHttpRequest>();
  const auto done = request->OnResponseFinished.Subscribe([&] { request.reset(); });
  request->Open(u"GET", server.Url(), true);
  request->Send();
  WaitUntil([&] { return !request; }, 1s);
  EXPECT_FALSE(request);
}

TEST_F(QtHttpRequestTest, RefusesWhatIsNoWebAddress) {
  QtHttpRequest request;
  for (const char16_t* url : {u"", u"example.com/x", u"file:///etc/passwd", u"http://", u"http://a b/"}) {
    EXPECT_THROW(request.Open(u"GET", url, true), Error) << ToUtf8(url);
  }
}

}  // namespace
}  // namespace quorvane::desktop

#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "platform/HttpRequest.h"

namespace quorvane::test {

/// The web as a test plays it: what was asked of it, and the request that waits for an answer.
class ScriptedWeb {
 public:
  /// Ends the waiting request with a body or with an error; false when none waits.
  bool Answer(const std::u16string& body) {
    if (waiting_ == nullptr) return false;
    Request& request = *std::exchange(waiting_, nullptr);
    request.body = body;
    request.OnResponseFinished.Raise();
    return true;
  }
  bool Fail(std::int32_t number, const std::u16string& description) {
    if (waiting_ == nullptr) return false;
    std::exchange(waiting_, nullptr)->OnError.Raise(number, description);
    return true;
  }
  bool Waiting() const { return waiting_ != nullptr; }

  std::unique_ptr<HttpRequest> NewRequest() { return std::make_unique<Request>(*this); }

  std::vector<std::string> Calls;
  std::int32_t RefuseSend = 0;  ///< when not 0, the error that Send raises

 private:
  struct Request final : HttpRequest {
    explicit Request(ScriptedWeb& theWeb) : web(theWeb) {}
    ~Request() override {
      if (web.waiting_ == this) web.waiting_ = nullptr;
    }

    void Open(std::u16string_view verb, const std::u16string& url, bool async) override {
      web.Calls.push_back("Open " + ToUtf8(verb) + " " + ToUtf8(url) + (async ? " async" : " sync"));
    }
    void Send() override {
      web.Calls.push_back("Send");
      if (web.RefuseSend != 0) throw Error(web.RefuseSend, u"refused");
      web.waiting_ = this;
    }
    void Abort() override {
      web.Calls.push_back("Abort");
      web.waiting_ = nullptr;
    }
    std::u16string ResponseText() const override { return body; }

    ScriptedWeb& web;
    std::u16string body;
  };

  Request* waiting_ = nullptr;
};

}  // namespace quorvane::test

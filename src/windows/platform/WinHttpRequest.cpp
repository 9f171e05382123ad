// A request goes on from callback to callback: sent, headers there, so much of the body there, that read, and again
// until nothing is there. What a callback needs of this side lives in a Call of its own, which the last callback of a
// request frees: a request that was aborted may still have callbacks to come.
#include "windows/platform/WinHttpRequest.h"

#include "windows/com/Win32.h"
//
#include <winhttp.h>

#include <algorithm>
#include <atomic>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "native/codepages/CodePages.h"
#include "platform/CodePage.h"
#include "platform/MessageLoop.h"
#include "platform/Platform.h"
#include "windows/forms/WideText.h"
#include "windows/forms/Window.h"

namespace quorvane::windows {

namespace {

constexpr std::int32_t kInvalidUrl = static_cast<std::int32_t>(0x80072EE5);
constexpr UINT kProgress = WM_APP + 1;  // wParam: turn * kKinds + kind, lParam: value
constexpr std::uint32_t kKinds = 8;
constexpr std::uint32_t kSent = 0;
constexpr std::uint32_t kHeaders = 1;
constexpr std::uint32_t kThere = 2;  // value: bytes that can be read
constexpr std::uint32_t kRead = 3;   // value: bytes
constexpr std::uint32_t kError = 4;  // value: WinHTTP's number
constexpr std::size_t kPiece = 16384;
constexpr int kLetGoMilliseconds = 1000;

std::atomic<int> openCalls{0};

/// What the callbacks of one request know.
struct Call {
  HWND window;
  std::uint32_t turn;
  char piece[kPiece];

  void Post(std::uint32_t kind, std::uint32_t value) const {
    ::PostMessageW(window, kProgress, turn * kKinds + kind, static_cast<LPARAM>(value));
  }
};

void CALLBACK OnStatus(HINTERNET, DWORD_PTR context, DWORD status, void* information, DWORD length) {
  auto* call = reinterpret_cast<Call*>(context);
  if (call == nullptr) return;
  switch (status) {
    case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
      call->Post(kSent, 0);
      break;
    case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE:
      call->Post(kHeaders, 0);
      break;
    case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE:
      call->Post(kThere, *static_cast<const DWORD*>(information));
      break;
    case WINHTTP_CALLBACK_STATUS_READ_COMPLETE:
      call->Post(kRead, length);
      break;
    case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR:
      call->Post(kError, static_cast<const WINHTTP_ASYNC_RESULT*>(information)->dwError);
      break;
    case WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING:
      delete call;
      --openCalls;
      break;
    default:
      break;
  }
}

std::u16string DecodeBody(const std::string& body, const std::u16string& contentType) {
  std::u16string type = contentType;
  for (char16_t& c : type) c = ToLowerAscii(c);
  const std::size_t at = type.find(u"charset=");
  std::u16string charset = at == type.npos ? std::u16string() : type.substr(at + 8);
  charset = charset.substr(0, charset.find(u';'));
  std::erase_if(charset, [](char16_t c) { return c <= u' ' || c == u'"'; });
  if (charset == u"iso-8859-1" || charset == u"us-ascii") charset = u"1252";
  if (!charset.empty() && charset != u"utf-8") {
    try {
      std::u16string text;
      native::NewCodePage(ToUtf8(charset))->Decode(body, text);
      return text;
    } catch (const Error&) {
      // Not one of ours: as UTF-8.
    }
  }
  return FromUtf8(body);
}

}  // namespace

/// The three handles of one request under way.
class WinHttpRequest::Connection {
 public:
  Connection() = default;
  ~Connection() {
    for (const HINTERNET handle : {request, connect, session}) {
      if (handle != nullptr) ::WinHttpCloseHandle(handle);
    }
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  std::u16string Header(DWORD which) const {
    wchar_t text[256];
    DWORD size = sizeof(text);
    if (!::WinHttpQueryHeaders(request, which, nullptr, text, &size, nullptr)) return {};
    return FromWide(text, size / sizeof(wchar_t));
  }
  void AskForMore() {
    if (!::WinHttpQueryDataAvailable(request, nullptr)) call->Post(kError, ::GetLastError());
  }
  /// No more than is there: a read that has to wait may do so on this thread.
  void Read(std::uint32_t bytes) {
    const DWORD length = std::min<DWORD>(bytes, kPiece);
    if (!::WinHttpReadData(request, call->piece, length, nullptr)) call->Post(kError, ::GetLastError());
  }

  HINTERNET session = nullptr;
  HINTERNET connect = nullptr;
  HINTERNET request = nullptr;
  Call* call = nullptr;  ///< good for as long as the request is open
};

/// The hidden window to which the callbacks post.
class WinHttpRequest::Receiver final : public Window {
 public:
  explicit Receiver(WinHttpRequest& owner) : owner_(owner) {
    Making making;
    making.parent = HWND_MESSAGE;
    Create(making);
  }

 protected:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    if (message != kProgress) return Default(message, wParam, lParam);
    if (wParam / kKinds == owner_.turn_ && owner_.connection_) {
      owner_.OnProgress(wParam % kKinds, static_cast<std::uint32_t>(lParam));
    }
    return 0;
  }

 private:
  WinHttpRequest& owner_;
};

WinHttpRequest::WinHttpRequest(std::chrono::milliseconds limit)
    : limit_(limit), receiver_(std::make_unique<Receiver>(*this)) {}

WinHttpRequest::~WinHttpRequest() {
  Abort();
  for (int waited = 0; openCalls > 0 && waited < kLetGoMilliseconds; waited += 10) ::Sleep(10);
  if (openCalls == 0) return;
  HMODULE pinned = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<const wchar_t*>(&OnStatus), &pinned);
}

void WinHttpRequest::Open(std::u16string_view verb, const std::u16string& url, bool) {
  Abort();
  URL_COMPONENTS parts{};
  parts.dwStructSize = sizeof(parts);
  parts.dwSchemeLength = parts.dwHostNameLength = parts.dwUrlPathLength = parts.dwExtraInfoLength =
      static_cast<DWORD>(-1);
  const bool cracked = ::WinHttpCrackUrl(Wide(url), static_cast<DWORD>(url.size()), 0, &parts) != FALSE;
  if (!cracked || parts.dwHostNameLength == 0) throw Error(kInvalidUrl, u"No web address: " + url);
  verb_ = verb;
  host_ = FromWide(parts.lpszHostName, parts.dwHostNameLength);
  path_ = FromWide(parts.lpszUrlPath, parts.dwUrlPathLength) + FromWide(parts.lpszExtraInfo, parts.dwExtraInfoLength);
  path_ = path_.substr(0, path_.find(u'#'));
  port_ = parts.nPort;
  secure_ = parts.nScheme == INTERNET_SCHEME_HTTPS;
}

void WinHttpRequest::Send() {
  if (host_.empty()) RaiseError(ErrorNumber::InvalidProcedureCall);
  Abort();
  body_.clear();
  answered_ = false;
  clock_ = ThePlatform().Loop().StartTimer(static_cast<std::int32_t>(limit_.count()),
                                           [this] { Fail(kHttpTimeout, u"The server did not answer in time"); });
  ++turn_;
  connection_ = std::make_unique<Connection>();
  Start();
}

/// Whatever fails here is told from the message loop, like what fails later.
void WinHttpRequest::Start() {
  Connection& c = *connection_;
  const auto fail = [this] {
    ::PostMessageW(receiver_->Handle(), kProgress, turn_ * kKinds + kError, static_cast<LPARAM>(::GetLastError()));
  };
  c.session = ::WinHttpOpen(L"Quorvane", WINHTTP_ACCESS_TYPE_DEFAULT_PROXY, nullptr, nullptr, WINHTTP_FLAG_ASYNC);
  if (c.session == nullptr) return fail();
  c.connect = ::WinHttpConnect(c.session, Wide(host_), port_, 0);
  if (c.connect == nullptr) return fail();
  c.request = ::WinHttpOpenRequest(c.connect, Wide(verb_), Wide(path_), nullptr, nullptr, nullptr,
                                   secure_ ? WINHTTP_FLAG_SECURE : 0);
  if (c.request == nullptr) return fail();
  // Its own limits come after ours, which is for the whole of it.
  const auto limit = static_cast<int>(limit_.count()) + kLetGoMilliseconds;
  ::WinHttpSetTimeouts(c.request, limit, limit, limit, limit);
  c.call = new Call{receiver_->Handle(), turn_, {}};
  ++openCalls;
  ::WinHttpSetStatusCallback(c.request, &OnStatus,
                             WINHTTP_CALLBACK_FLAG_ALL_COMPLETIONS | WINHTTP_CALLBACK_FLAG_HANDLES, 0);
  auto context = reinterpret_cast<DWORD_PTR>(c.call);
  ::WinHttpSetOption(c.request, WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof(context));
  if (!::WinHttpSendRequest(c.request, nullptr, 0, nullptr, 0, 0, context)) fail();
}

void WinHttpRequest::Abort() {
  if (clock_ != 0) ThePlatform().Loop().StopTimer(std::exchange(clock_, 0));
  connection_.reset();
}

void WinHttpRequest::OnProgress(std::uint32_t kind, std::uint32_t value) {
  switch (kind) {
    case kSent:
      if (!::WinHttpReceiveResponse(connection_->request, nullptr)) FailWith(::GetLastError());
      return;
    case kHeaders:
      answered_ = true;
      connection_->AskForMore();
      return;
    case kThere:
      if (value == 0) return Finish();
      connection_->Read(value);
      return;
    case kRead:
      Collect(value);
      return;
    default:
      FailWith(value);
      return;
  }
}

void WinHttpRequest::Collect(std::uint32_t bytes) {
  body_.append(connection_->call->piece, bytes);
  if (body_.size() > kHttpBodyLimit) return Fail(kHttpBodyTooLarge, u"The page is too large");
  connection_->AskForMore();
}

/// The end of a connection looks like the end of a body.
void WinHttpRequest::Finish() {
  const std::u16string length = connection_->Header(WINHTTP_QUERY_CONTENT_LENGTH);
  if (!length.empty() && length != ToText(static_cast<std::int64_t>(body_.size()))) {
    return FailWith(ERROR_WINHTTP_CONNECTION_ERROR);
  }
  text_ = DecodeBody(body_, connection_->Header(WINHTTP_QUERY_CONTENT_TYPE));
  Abort();
  OnResponseFinished.Raise();
}

void WinHttpRequest::FailWith(std::uint32_t windowsNumber) {
  const bool lost = answered_ || windowsNumber == ERROR_WINHTTP_CONNECTION_ERROR ||
                    windowsNumber == ERROR_WINHTTP_INVALID_SERVER_RESPONSE;
  if (windowsNumber == ERROR_WINHTTP_TIMEOUT) return Fail(kHttpTimeout, u"The server did not answer in time");
  if (lost) return Fail(kHttpConnectionLost, u"The server broke the connection off");
  Fail(kHttpCannotConnect, u"The server cannot be reached (" + ToText(static_cast<std::int64_t>(windowsNumber)) + u")");
}

void WinHttpRequest::Fail(std::int32_t number, const std::u16string& description) {
  Abort();
  OnError.Raise(number, description);
}

}  // namespace quorvane::windows

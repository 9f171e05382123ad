#include <QMessageBox>
#include <QTimer>
#include <chrono>
#include <string>
#include <vector>

#include "DesktopFixture.h"
#include "HttpServer.h"
#include "addin/connect/Updater.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "base/Text.h"
#include "desktop/platform/QtText.h"
#include "platform/App.h"
#include "platform/HttpRequest.h"
#include "platform/Platform.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"

namespace quorvane::desktop {
namespace {

using namespace std::chrono_literals;

/// The progress window without its controls: begins the check at its load and goes when it is done.
class Progress final : public forms::Form {
 public:
  Progress() : Form(u"frmProcessing") {}

 protected:
  void Form_Load() override {
    done_ = Globals::gobjUpdater->TaskDone.Subscribe([this] { Unload(); });
    failed_ = Globals::gobjUpdater->OnError.Subscribe([this](std::int32_t, const auto&) { Unload(); });
    Globals::gobjUpdater->StartCheck();
  }
  void Form_QueryUnload(bool&, forms::UnloadMode mode) override {
    if (mode == forms::UnloadMode::FormControlMenu) Globals::gobjUpdater->CancelUpdate();
  }
  void Form_Unload(bool&) override {
    done_.Reset();
    failed_.Reset();
  }

 private:
  Subscription done_;
  Subscription failed_;
};

/// The check for updates in the whole program, from the request on the wire to the message box.
class UpdaterOverHttpTest : public DesktopTest {
 protected:
  ~UpdaterOverHttpTest() override { ForgetEvents(); }

  void StartWith(const HttpServer& server, std::chrono::milliseconds limit = 30s) {
    ForgetEvents();
    desktop.reset();
    qputenv("QUORVANE_PROJECT_HOST", ToQString(server.Host()).toLatin1());
    setup.httpLimit = limit;
    Start();
    Globals::Language().Language = 1;
    forms::TheForms().Register(u"frmProcessing", [] { return std::make_shared<Progress>(); });
    done_ = Globals::gobjUpdater->TaskDone.Subscribe([this] { events += "done "; });
    failed_ = Globals::gobjUpdater->OnError.Subscribe([this](std::int32_t number, const std::u16string& words) {
      events += "error " + std::to_string(number & 0xFFFF) + (words.empty() ? " without words" : "");
    });
  }

  /// What a check shows and raises: "events | box". `box`: whether one will come.
  std::string Check(bool active, bool box) {
    events.clear();
    QString shown;
    const bool offer = !active || expectsOffer;
    if (box) AnswerNext(offer ? QMessageBox::No : QMessageBox::Ok, &shown);
    if (active) {
      Globals::gobjUpdater->CheckUpdate();
    } else {
      Globals::gobjUpdater->menumUpdateInterval = 0;
      Globals::gobjUpdater->ScheduleUpdate();
    }
    EXPECT_TRUE(WaitUntil([&] { return !events.empty() && (!box || !shown.isEmpty()); }, 5s));
    EXPECT_EQ(forms::TheForms().Count(), 0) << "the progress window is gone";
    return events + "| " + shown.section(QLatin1Char('\n'), 0, 0).trimmed().toStdString();
  }

  std::string events;
  bool expectsOffer = false;

 private:
  void ForgetEvents() {
    done_.Reset();
    failed_.Reset();
  }
  Subscription done_;
  Subscription failed_;
};

TEST_F(UpdaterOverHttpTest, VerdictOnEveryPage) {
  enum Verdict { kNewer, kLatest, kSilent };
  struct Row {
    const char* name;
    QByteArray response;
    Verdict verdict;
    std::string events;
  };
  const auto error = [](std::int32_t number) { return "error " + std::to_string(number & 0xFFFF); };
  constexpr qsizetype limit = 1024 * 1024;
  const Row rows[] = {
      {"newer", Response("<b>4.13.0.130</b>"), kNewer, "done "},
      {"equal", Response("<b>4.13.0.129</b>"), kLatest, "done "},
      {"older", Response("<b>4.12.9.999</b>"), kLatest, "done "},
      {"no version", Response("<b>4.13.130</b>"), kSilent, "done error 1024"},
      {"no page", Response(""), kSilent, "done error 1024"},
      {"error page", Response("gone", "404 Not Found"), kSilent, "done error 1024"},
      {"error page with a version", Response("nginx/4.13.0.130", "404 Not Found"), kNewer, "done "},
      {"largest page", Response(QByteArray(limit - 8, 'x') + " 5.0.0.0"), kNewer, "done "},
      {"too large a page", Response("5.0.0.0 " + QByteArray(limit - 7, 'x')), kSilent, error(kHttpBodyTooLarge)},
      {"cut page", kCutResponse, kSilent, error(kHttpConnectionLost)},
  };
  const char* boxes[] = {"[VB Quorvane]", "Current version is latest (4.13.0.129).", ""};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    HttpServer server(row.response);
    StartWith(server);
    expectsOffer = row.verdict == kNewer;
    EXPECT_EQ(Check(true, row.verdict != kSilent), row.events + "| " + boxes[row.verdict]);
    EXPECT_TRUE(server.request.startsWith("GET /p/vbquorvane/wiki/Update HTTP/1.1\r\n")) << server.request.constData();
    EXPECT_EQ(Check(false, row.verdict == kNewer), row.events + "| " + (expectsOffer ? boxes[kNewer] : ""));
  }
}

TEST_F(UpdaterOverHttpTest, ServersThatDoNotAnswer) {
  HttpServer stalled(kCutResponse, false);
  StartWith(stalled, 100ms);
  for (const bool active : {true, false}) {
    EXPECT_EQ(Check(active, false), "error " + std::to_string(kHttpTimeout & 0xFFFF) + "| ");
  }
  stalled.Close();
  for (const bool active : {true, false}) {
    EXPECT_EQ(Check(active, false), "error " + std::to_string(kHttpCannotConnect & 0xFFFF) + "| ");
  }
}

TEST_F(UpdaterOverHttpTest, ACancelledCheckEndsInSilenceAndTheNextOneWorks) {
  HttpServer stalled(kCutResponse, false);
  StartWith(stalled);
  QTimer closer;
  QObject::connect(&closer, &QTimer::timeout, [&] {
    if (!stalled.request.isEmpty()) forms::TheForms().Item(0)->CloseByUser();
  });
  closer.start(1);
  Globals::gobjUpdater->CheckUpdate();
  closer.stop();
  EXPECT_EQ(events, "");
  EXPECT_EQ(forms::TheForms().Count(), 0);

  HttpServer newer(Response("4.13.0.130"));
  ThePlatform().TheApp().ProjectHost = newer.Host();
  expectsOffer = true;
  EXPECT_EQ(Check(true, true), "done | [VB Quorvane]") << "and nothing of the first one";
}

}  // namespace
}  // namespace quorvane::desktop

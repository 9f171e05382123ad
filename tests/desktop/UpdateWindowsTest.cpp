#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>

#include "FormWindowsFixture.h"
#include "HttpServer.h"
#include "addin/dialogs/frmAbout.h"
#include "addin/dialogs/frmOption.h"
#include "addin/dialogs/frmProcessing.h"
#include "platform/App.h"
#include "platform/HttpRequest.h"
#include "platform/Platform.h"

namespace quorvane::desktop {
namespace {

using namespace std::chrono_literals;

class UpdateWindowsTest : public FormWindowsTest {
 protected:
  /// Opens the options, presses the button that checks, and closes them again after whatever came.
  void Check(const std::function<void()>& meanwhile = {}) {
    Walk(
        u"frmOption", [] { forms::TheForms().Instance(u"frmOption")->Show(forms::FormModal::Modal); },
        [&] {
          frmOption& options = The<frmOption>();
          const auto press = [&] { FormWindowsTest::Click(options, *options.cmd检查更新); };
          meanwhile ? Walk(u"frmProcessing", press, meanwhile) : press();
          EXPECT_EQ(forms::TheForms().Open().back().get(), &options)
              << "the progress window is gone, the options are not";
          FormWindowsTest::Click(options, *options.cmd取消);
        });
  }
};

TEST_F(UpdateWindowsTest, OutcomesOfARealRequest) {
  StartWithGroup();
  struct Row {
    const char* name;
    QByteArray response;
    int button;  ///< of the box that tells; 0: none comes
    std::string told;
    bool opens;
  };
  const std::string offer =
      "[VB Quorvane]\r\n\r\nFound new version:5.0.0.1\r\nCurrent version is:4.13.0.129\r\n\r\n"
      "Goto download? (jump to website)";
  const Row rows[] = {
      {"newer, wanted", Response("5.0.0.1"), QMessageBox::Yes, offer, true},
      {"newer, not wanted", Response("5.0.0.1"), QMessageBox::No, offer, false},
      {"the same", Response("4.13.0.129"), QMessageBox::Ok, "Current version is latest (4.13.0.129).", false},
      {"no version", Response("none"), 0, "", false},
      {"cut", kCutResponse, QMessageBox::Ok, std::to_string(kHttpConnectionLost) + ":", false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    HttpServer server(row.response);
    ThePlatform().TheApp().ProjectHost = server.Host();
    system.addresses.clear();
    QString told;
    if (row.button != 0) AnswerNext(row.button, &told);
    Check();
    EXPECT_EQ(told.left(static_cast<qsizetype>(row.told.size())).toStdString(), row.told);
    EXPECT_EQ(system.addresses.join(QLatin1Char(' ')),
              row.opens ? QStringLiteral("http://%1/p/vbquorvane/downloads").arg(ToQString(server.Host())) : QString());
  }
}

TEST_F(UpdateWindowsTest, TheProgressWindowIsClosedInSilence) {
  StartWithGroup();
  HttpServer stalled(kCutResponse, false);
  ThePlatform().TheApp().ProjectHost = stalled.Host();
  Check([&] {
    QWidget& window = WindowOf(The<frmProcessing>());
    auto& bar = Below<QProgressBar>(window);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Checking for update"));
    EXPECT_EQ(bar.value(), 0);
    EXPECT_TRUE(WaitUntil([&] { return bar.value() == 20 && !stalled.request.isEmpty(); }, 2s));
    window.close();
  });
}

using AboutWindowTest = FormWindowsTest;

TEST_F(AboutWindowTest, TextsLinksAndKeys) {
  folder.Write("program/ReadMe.txt", "Read\r\nme \xE9\r\n");
  StartWithGroup();
  Globals::gobjSetting->menumAutoHideSearchDlg = 2;
  Search(QStringLiteral("nextorderno"));
  const auto text = [this](const forms::TextBox& box) {
    return WidgetOf<QPlainTextEdit>(The<frmAbout>(), box).toPlainText();
  };
  Walk(u"frmAbout", From::ResultMenu, [&] {
    frmAbout& about = The<frmAbout>();
    EXPECT_EQ(WindowOf(about).windowTitle(), QStringLiteral("About Quorvane add-in"));
    EXPECT_EQ(WidgetOf<QLabel>(about, *about.lblVersion).text(), QStringLiteral("Version 4.13.0.129"));
    EXPECT_EQ(text(*about.txt说明), QStringLiteral("Read\nme \u00e9\n"));
    EXPECT_EQ(text(*about.txt许可), QString()) << "there is no such file";
    QTest::keyClicks(&WidgetOf(about, *about.txt说明), QStringLiteral("x"));
    EXPECT_EQ(text(*about.txt说明), QStringLiteral("Read\nme \u00e9\n"));
    FormWindowsTest::Click(about, *about.lblProjectUrl);
    QTest::keyClick(&WidgetOf(about, *about.lblEmail), Qt::Key_Space);
    EXPECT_EQ(system.addresses.join(QLatin1Char(' ')),
              QStringLiteral("http://127.0.0.1:1/p/vbquorvane/ mailto:quorvane@127.0.0.1"));
    QTest::keyClick(&WidgetOf(about, *about.txt说明), Qt::Key_Escape);
  });
  folder.Write("program/License.txt", "may");
  Walk(u"frmAbout", From::SearchDialog, [&] {
    EXPECT_EQ(text(*The<frmAbout>().txt许可), QStringLiteral("may"));
    QTest::keyClick(&WidgetOf(The<frmAbout>(), *The<frmAbout>().txt许可), Qt::Key_Return);
  });
  Walk(u"frmAbout", From::SearchDialog, [&] { FormWindowsTest::Click(The<frmAbout>(), *The<frmAbout>().cmdOK); });
}

}  // namespace
}  // namespace quorvane::desktop

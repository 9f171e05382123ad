#include "desktop/shell/Program.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

#include "base/Text.h"
#include "desktop/platform/QtPrompts.h"
#include "desktop/platform/QtText.h"
#include "desktop/shell/Desktop.h"
#include "desktop/shell/EndSignals.h"
#include "desktop/shell/MainWindow.h"
#include "native/system/UserFolders.h"

namespace quorvane::desktop {

namespace {

constexpr int kStatusError = 2;

int Complain(const std::string& message) {
  std::fprintf(stderr, "quorvane: %s\n", message.c_str());
  return kStatusError;
}

bool HasDisplay() {
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) {
    if (!qEnvironmentVariableIsEmpty(name)) return true;
  }
  return false;
}

int NoDisplay() {
  return Complain("there is no display for a window; 'quorvane --help' tells of the command line");
}

/// While the application is made the toolkit ends the process when it cannot reach the display.
void OnStartMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (type != QtFatalMsg) {
    std::fprintf(stderr, "%s\n", qFormatLogMessage(type, context, message).toLocal8Bit().constData());
    return;
  }
  std::_Exit(NoDisplay());
}

/// What a handler lets escape is told, and the program goes on.
class Application final : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
      QtPrompts().MsgBox(FromUtf8(error.what()), kCritical, u"Quorvane");
      return true;
    }
  }
};

/// `--fault-box TEXT FLAGS CAPTION`: asks on behalf of a process that can no longer ask. The answer is the status.
int FaultBox(const QStringList& arguments) {
  return QtPrompts().MsgBox(FromQString(arguments[2]), arguments[3].toInt(), FromQString(arguments[4]));
}

bool IsFaultBox(const QStringList& arguments) {
  return arguments.size() == 5 && arguments[1] == QLatin1String("--fault-box");
}

int Run(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Find and replace in Visual Basic 6 projects, in a window."));
  const QCommandLineOption codePage(QStringLiteral("codepage"),
                                    QStringLiteral("Code page of the files, such as 1252, 936 or UTF-8."),
                                    QStringLiteral("NAME"));
  parser.addOption(codePage);
  parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Groups, projects or module files."),
                               QStringLiteral("[FILE...]"));
  parser.addHelpOption();
  parser.addVersionOption();
  parser.process(arguments);

  QtPlatform::Setup setup;
  setup.codePage = parser.value(codePage).toStdString();
  setup.configFolder = native::ConfigFolder();
  setup.dataFolder = native::DataFolder();
  setup.programFolder = native::ProgramFolder();
  setup.faultQuestion = QApplication::applicationFilePath().toStdString();
  Desktop desktop(setup);
  EndSignals signals;
  const Subscription asked = signals.Came.Subscribe([&desktop](int) { desktop.EndSoon(); });
  const Subscription ended = desktop.Ended.Subscribe([] { QApplication::exit(); });
  desktop.Start();
  const QStringList files = parser.positionalArguments();
  QTimer::singleShot(0, &desktop.Window(), [&] { desktop.OpenFirst(files); });
  return QApplication::exec();
}

}  // namespace

int Main(int argc, char** argv) {
  if (!HasDisplay()) {
    return NoDisplay();
  }
  qInstallMessageHandler(OnStartMessage);
  Application application(argc, argv);
  qInstallMessageHandler(nullptr);
  QApplication::setApplicationName(QStringLiteral("quorvane"));
  QApplication::setApplicationVersion(QStringLiteral(QUORVANE_VERSION));
  try {
    return IsFaultBox(QApplication::arguments()) ? FaultBox(QApplication::arguments()) : Run(QApplication::arguments());
  } catch (const std::exception& error) {
    return Complain(error.what());
  }
}

}  // namespace quorvane::desktop

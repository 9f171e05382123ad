#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QProcess>
#include <cstdlib>

#include "DesktopFixture.h"

namespace quorvane::desktop {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kPage = 4096;

/// A process of the whole program faults, and a user at a screen of its own answers the box that the program shows.
class FaultBoxTest : public DesktopTest {
 protected:
  FaultBoxTest() {
    screen_.start(QStringLiteral("Xvfb"),
                  {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"), QStringLiteral("0"),
                   QStringLiteral("800x600x24"), QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    while (!screen_.canReadLine() && screen_.waitForReadyRead(10'000)) {
    }
    display = ":" + screen_.readLine().trimmed();
    setup.faultQuestion = std::filesystem::path(QUORVANE_PROGRAM).replace_filename("quorvane-desktop").string();
    Start();
    Globals::Language().Language = 1;
  }
  ~FaultBoxTest() override {
    screen_.terminate();
    screen_.waitForFinished(5'000);
  }

  /// A process that writes to a page of a file that has none: a fault for as long as nobody makes the file longer.
  pid_t Fault(const QByteArray& where) {
    const std::string file = folder.Write("page", "");
    const pid_t process = fork();
    if (process != 0) return process;
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    setenv("DISPLAY", where.constData(), 1);
    setenv("QT_QPA_PLATFORM", "xcb", 1);
    const int opened = open(file.c_str(), O_RDWR);
    *static_cast<volatile char*>(mmap(nullptr, kPage, PROT_WRITE, MAP_SHARED, opened, 0)) = 'x';
    _exit(0);
  }

  /// The window of the question, by the title that the user reads; empty when none comes.
  QString Question() {
    return Run({QStringLiteral("search"), QStringLiteral("--sync"), QStringLiteral("--onlyvisible"),
                QStringLiteral("--name"), QStringLiteral("^An secret event has been occured")});
  }
  /// A window that goes with the first of the keys is no failure.
  void Press(const QString& window, const QStringList& keys) {
    Run(QStringList{QStringLiteral("windowfocus"), QStringLiteral("--sync"), window, QStringLiteral("key")} + keys);
  }
  QString Run(const QStringList& arguments) {
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(display));
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral("xdotool"), arguments);
    if (!tool.waitForFinished(20'000)) tool.kill();
    EXPECT_NE(tool.error(), QProcess::FailedToStart) << "xdotool is missing; scripts/install-deps installs it";
    return QString::fromLatin1(tool.readAllStandardOutput()).trimmed();
  }

  /// "exit N" or "signal N" of the process that faulted.
  std::string EndOf(pid_t process) {
    int status = 0;
    if (!WaitUntil([&] { return waitpid(process, &status, WNOHANG) == process; }, 20s)) {
      kill(process, SIGKILL);
      waitpid(process, &status, 0);
      return "none";
    }
    return WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status))
                               : "exit " + std::to_string(WEXITSTATUS(status));
  }

  QByteArray display;

 private:
  QProcess screen_;
};

TEST_F(FaultBoxTest, TheAnswerDecides) {
  ASSERT_GT(display.size(), 1) << "no screen; scripts/install-deps installs Xvfb";
  struct Row {
    const char* name;
    QStringList keys;
    std::string end;
  };
  const std::string ended = "signal " + std::to_string(SIGBUS);
  const Row rows[] = {
      {"Retry, which the box starts with", {QStringLiteral("Return")}, "exit 0"},
      {"Abort", {QStringLiteral("Escape")}, ended},
      {"Ignore", {QStringLiteral("Right"), QStringLiteral("space")}, ended},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const pid_t process = Fault(display);
    const QString window = Question();
    EXPECT_FALSE(window.isEmpty());
    // From here on the instruction would work, so that Retry shows; the other two end the process nevertheless.
    std::filesystem::resize_file(folder / "page", kPage);
    Press(window, row.keys);
    EXPECT_EQ(EndOf(process), row.end);
  }
}

TEST_F(FaultBoxTest, AQuestionThatCannotBeAskedEndsTheProcess) {
  ASSERT_GT(display.size(), 1) << "no screen; scripts/install-deps installs Xvfb";
  const std::string ended = "signal " + std::to_string(SIGBUS);
  EXPECT_EQ(EndOf(Fault(":no-such-screen")), ended);

  const pid_t process = Fault(display);
  const QString window = Question();
  std::filesystem::resize_file(folder / "page", kPage);
  Run({QStringLiteral("windowkill"), window});
  EXPECT_EQ(EndOf(process), ended);
}

}  // namespace
}  // namespace quorvane::desktop

#include <gtest/gtest.h>

#include <QProcess>
#include <QProcessEnvironment>

#include "QtFixture.h"
#include "support/TempFolder.h"

namespace quorvane::desktop {
namespace {

/// The installed programs, run as from a shell.
class LauncherTest : public QtTest {
 protected:
  struct Outcome {
    int status = -1;
    std::string err;
  };

  Outcome Run(const QStringList& arguments, const QString& platform,
              const QString& program = QStringLiteral(QUORVANE_PROGRAM)) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) environment.remove(QLatin1String(name));
    if (!platform.isEmpty()) environment.insert(QStringLiteral("QT_QPA_PLATFORM"), platform);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QString::fromStdString(folder / "config"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QString::fromStdString(folder.Path().string()));
    process.start(program, arguments);
    const bool ended = process.waitForFinished(10'000);
    if (!ended) process.kill();
    return {ended ? process.exitCode() : -1, process.readAllStandardError().toStdString()};
  }

  test::TempFolder folder;
};

TEST_F(LauncherTest, SaysInOneLineWhatKeepsTheWindowFromOpening) {
  const std::string file = folder.Write("a.bas", "x\r\n");
  struct Case {
    QStringList arguments;
    QString platform;
    const char* told;
  };
  const Case cases[] = {
      {{}, {}, "no display"},
      {{QStringLiteral("a.bas")}, {}, "no display"},
      {{QStringLiteral("a.bas")}, QStringLiteral("no-such-platform"), "no display"},
      {{QStringLiteral("fnd"), QStringLiteral("x")}, QStringLiteral("offscreen"), "fnd: neither a command"},
      {{QStringLiteral("--codepage"), QStringLiteral("nope")}, QStringLiteral("offscreen"), "nope"},
  };
  for (const Case& row : cases) {
    const Outcome outcome = Run(row.arguments, row.platform);
    EXPECT_EQ(outcome.status, 2) << row.told;
    EXPECT_NE(outcome.err.find(std::string("quorvane: ")), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find(row.told), std::string::npos) << outcome.err;
  }
}

TEST_F(LauncherTest, TheFirstStartSpeaksTheLanguageOfTheSystem) {
  // Beside the program, where that can be written.
  const std::string stored = "program/config.ini", program = folder / "program/quorvane-desktop";
  std::filesystem::create_directories(folder / "program");
  std::filesystem::copy_file(QUORVANE_DESKTOP_PROGRAM, program);
  for (const auto& [locale, language] :
       {std::pair("zh_CN.UTF-8", "0"), std::pair("zh_TW", "0"), std::pair("de_DE.UTF-8", "1")}) {
    std::filesystem::remove(folder / stored);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("LC_ALL"), QLatin1String(locale));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), QString::fromStdString(folder / "config"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), QString::fromStdString(folder / "data"));
    process.setProcessEnvironment(environment);
    process.start(QString::fromStdString(program), QStringList());
    EXPECT_TRUE(WaitUntil([&] { return std::filesystem::exists(folder / stored); }, std::chrono::seconds(20)));
    process.terminate();
    EXPECT_TRUE(process.waitForFinished(20'000));
    EXPECT_EQ(folder.Read(stored), std::string("[Language Setting]\r\nLanguage=") + language + "\r\n") << locale;
  }
}

TEST_F(LauncherTest, SaysThatTheOtherProgramIsMissing) {
  const std::string alone = folder / "quorvane";
  std::filesystem::copy_file(QUORVANE_PROGRAM, alone);
  const Outcome outcome = Run({}, QStringLiteral("offscreen"), QString::fromStdString(alone));
  EXPECT_EQ(outcome.status, 2);
  EXPECT_NE(outcome.err.find("quorvane-desktop: No such file"), std::string::npos) << outcome.err;
}

TEST_F(LauncherTest, CommandsWorkWithoutTheToolkit) {
  folder.Write("a.bas", "Dim total\r\n");
  EXPECT_EQ(Run({QStringLiteral("find"), QStringLiteral("total"), QStringLiteral("a.bas")}, {}).status, 0);
  QProcess ldd;
  ldd.start(QStringLiteral("ldd"), {QStringLiteral(QUORVANE_PROGRAM)});
  ASSERT_TRUE(ldd.waitForFinished(10'000));
  const QByteArray libraries = ldd.readAllStandardOutput();
  EXPECT_TRUE(libraries.contains("libpcre2"));
  EXPECT_FALSE(libraries.contains("libQt"));
}

}  // namespace
}  // namespace quorvane::desktop

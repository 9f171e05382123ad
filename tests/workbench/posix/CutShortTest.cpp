// A save that is killed, or asked to end.
#include <fcntl.h>

#include <csignal>
#include <map>

#include "native/files/NewFile.h"
#include "support/Kills.h"
#include "workbench/FileSaverFixture.h"
#include "workbench/save/SaveJournal.h"

namespace quorvane::workbench {
namespace {

using CutShortTest = FileSaverTest;

TEST_F(CutShortTest, AKilledSaveLeavesWholeFilesAndTheNextOneNothingElse) {
  const std::vector<std::string> paths = {a_, folder_.Write("sub/b.bas", "b"), folder_.Write("sub/c.bas", "c")};
  const auto save = [&paths](char letter) {
    std::vector<FileToSave> files;
    for (const std::string& path : paths) files.push_back(ToSave(path, std::string(200'000, letter)));
    SaveFiles(files);
  };
  const auto letters = [this] {
    std::string found;
    for (const char* name : {"a.bas", "sub/b.bas", "sub/c.bas"}) {
      const std::string bytes = folder_.Read(name);
      EXPECT_EQ(bytes, std::string(200'000, bytes.front())) << name;
      found += bytes.front();
    }
    return found;
  };
  test::Kills kills;
  std::map<Recovery, int> recovered;
  save('x');
  kills.Run([&](int turn) { save(static_cast<char>('a' + turn % 2)); },
            [&] {
              const std::string found = letters();
              const auto half = FindHalfSaves(paths);
              EXPECT_EQ(half.size(), found == std::string(3, found[0]) ? 0u : 1u) << found;
              if (!half.empty()) {
                const Recovery how = recovered.size() % 2 == 0 ? Recovery::Finish : Recovery::GoBack;
                ++recovered[how];
                half[0].Recover(how);
                EXPECT_EQ(letters(), std::string(3, how == Recovery::Finish ? found[0] : found[2]));
              }
              save('x');
              EXPECT_EQ(letters(), "xxx");
              EXPECT_EQ(NamesIn(folder_.Path()), (std::vector<std::string>{"a.bas", "b.bas", "sub"}));
              EXPECT_EQ(NamesIn(folder_ / "sub"), (std::vector<std::string>{"b.bas", "c.bas"}));
            });
}

/// How a child ends that saves both files with `rename`.
int EndOf(const std::vector<FileToSave>& files, const RenameFile& rename = {}) {
  const pid_t child = ::fork();
  if (child == 0) {
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) std::signal(signal, SIG_DFL);  // whatever the shell ignores
    const Error error = ErrorOf(files, rename);
    ::_exit(error.Is(ErrorNumber::UserInterrupt) ? 18 : error.Number == 0 ? 0 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

TEST_F(CutShortTest, ASignalWaitsForTheRenamesThatBegan) {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    const std::string text = "new for " + std::to_string(signal);
    EXPECT_EQ(EndOf({ToSave(a_, text), ToSave(b_, text)},
                    [signal](const char* from, const char* to) {
                      ::raise(signal);
                      return native::MoveOver(from, to);
                    }),
              -signal);
    EXPECT_EQ(folder_.Read("a.bas") + folder_.Read("b.bas"), text + text);
    EXPECT_EQ(NamesIn(folder_.Path()), (std::vector<std::string>{"a.bas", "b.bas"}));
  }
}

#ifdef F_NOTIFY  // Linux sends a signal as soon as a file is made in the folder
TEST_F(CutShortTest, ASignalStopsTheWriting) {
  const auto files = std::vector{ToSave(a_, "new a"), ToSave(b_, "new b")};
  const pid_t child = ::fork();
  if (child == 0) {
    std::signal(SIGTERM, [](int) {});
    std::signal(SIGIO, [](int) { ::raise(SIGTERM); });
    ::fcntl(::open(folder_.Path().c_str(), O_RDONLY | O_DIRECTORY), F_NOTIFY, DN_CREATE);
    ::_exit(ErrorOf(files).Is(ErrorNumber::UserInterrupt) ? 18 : 1);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 18);
  EXPECT_EQ(folder_.Read("a.bas") + folder_.Read("b.bas"), "old aold b");
  EXPECT_EQ(NamesIn(folder_.Path()), (std::vector<std::string>{"a.bas", "b.bas"}));
}
#endif

/// Some systems take a file away before the new one comes: whatever is asked for, no name is left without a file.
TEST_F(CutShortTest, AFileThatIsGoneMeanwhileComesBack) {
  const std::map<Recovery, std::string> texts = {
      {Recovery::Finish, "new anew b"}, {Recovery::GoBack, "old aold b"}, {Recovery::Keep, "new aold b"}};
  for (const auto& [how, expected] : texts) {
    folder_.Write("a.bas", "old a");
    folder_.Write("b.bas", "old b");
    EndOf({ToSave(a_, "new a"), ToSave(b_, "new b")}, [this](const char* from, const char* to) {
      if (to != b_) return native::MoveOver(from, to);
      ::unlink(to);
      return ::raise(SIGKILL);
    });
    FindHalfSaves({a_}).at(0).Recover(how);
    EXPECT_EQ(folder_.Read("a.bas") + folder_.Read("b.bas"), expected);
    EXPECT_EQ(NamesIn(folder_.Path()), (std::vector<std::string>{"a.bas", "b.bas"}));
  }
}

TEST_F(CutShortTest, NothingElseIsTaken) {
  const std::vector<std::string> others = {".a.bas.quorvane-1-2-3-abcdef", ".a.bas.quorvane-", ".a.bas.quorvane-abcdef",
                                           ".c.bas.quorvane-1-2-3-abcdef", "a.bas.quorvane-1-2-3-abcdef"};
  for (const std::string& name : others) folder_.Write(name, "of somebody");
  const auto before = NamesIn(folder_.Path());
  SaveFiles({ToSave(a_, "new a")});
  EXPECT_EQ(NamesIn(folder_.Path()), before);
  // A save that is cut short must be settled first, and only as long as the files are what it left.
  EXPECT_EQ(EndOf({ToSave(a_, "newer"), ToSave(b_, "newer")},
                  [this](const char* from, const char* to) {
                    if (to == b_) ::raise(SIGKILL);
                    return native::MoveOver(from, to);
                  }),
            -SIGKILL);
  EXPECT_NE(std::string(ErrorOf({ToSave(b_, "x")}).what()).find("1 of 2 are saved"), std::string::npos);
  native::FileStamp untouched = native::FileStamp::Of(a_).value();
  folder_.Write("b.bas", "of somebody else");
  EXPECT_EQ(test::Raised([&] { FindHalfSaves({b_}).at(0).Recover(Recovery::Finish); }).Number, 75);
  EXPECT_EQ(native::FileStamp::Of(a_).value(), untouched);
  FindHalfSaves({b_}).at(0).Recover(Recovery::Keep);
  EXPECT_EQ(folder_.Read("a.bas") + folder_.Read("b.bas"), "newerof somebody else");
  EXPECT_EQ(NamesIn(folder_.Path()), before);
}

}  // namespace
}  // namespace quorvane::workbench

// Modes, links, a full disk, and somebody else at the same time.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "workbench/FileSaverFixture.h"

namespace quorvane::workbench {
namespace {

using FileSaverOnDiskTest = FileSaverTest;

mode_t ModeOf(const std::string& path) {
  struct stat found {};
  return ::stat(path.c_str(), &found) == 0 ? found.st_mode & 07777 : 0;
}

TEST_F(FileSaverOnDiskTest, ReplacesFilesAndKeepsWhatTheyAre) {
  ASSERT_EQ(::chmod(a_.c_str(), 0640), 0);
  fs::create_directory(folder_ / "sub");
  fs::create_symlink("../b.bas", folder_ / "sub/link.bas");
  const std::string link = folder_ / "sub/link.bas";
  const std::string longName = folder_.Write(std::string(251, 'n') + ".bas", "old n");

  const auto stamps =
      SaveFiles({ToSave(a_, "new a"), ToSave(link, "new b"), ToSave(longName, ""), ToSave(a_, "new a")});

  EXPECT_EQ(folder_.Read("a.bas"), "new a");
  EXPECT_EQ(folder_.Read("b.bas"), "new b");
  EXPECT_EQ(fs::file_size(longName), 0u);
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(ModeOf(a_), 0640u);
  EXPECT_EQ(NamesIn(folder_.Path()),
            (std::vector<std::string>{"a.bas", "b.bas", fs::path(longName).filename(), "sub"}));
  EXPECT_EQ(NamesIn(folder_ / "sub"), std::vector<std::string>{"link.bas"});
  const native::FileStamp a = native::FileStamp::Of(a_).value();
  EXPECT_EQ(stamps, (std::vector<native::FileStamp>{a, native::FileStamp::Of(b_).value(),
                                                    native::FileStamp::Of(longName).value(), a}));
  // What was saved can be saved again.
  SaveFiles({{a_, "newer a", stamps[0]}});
  EXPECT_EQ(folder_.Read("a.bas"), "newer a");
}

/// Files cannot grow beyond `bytes` until the end of the scope.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallDisk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }

 private:
  rlimit before_{};
  void (*handler_)(int);
};

TEST_F(FileSaverOnDiskTest, AFullDiskLeavesEverythingAsItWas) {
  const std::vector<FileToSave> files = {ToSave(a_, "new a"), ToSave(b_, std::string(100000, 'b'))};
  Error error;
  {
    const SmallDisk disk(50000);
    error = ErrorOf(files);
  }
  EXPECT_EQ(error.Number, 61);
  EXPECT_EQ(std::string(error.what()), b_ + ": cannot be saved: File too large");
  EXPECT_EQ(folder_.Read("a.bas"), "old a");
  EXPECT_EQ(folder_.Read("b.bas"), "old b");
  EXPECT_EQ(NamesIn(folder_.Path()), (std::vector<std::string>{"a.bas", "b.bas"}));
}

#ifdef F_NOTIFY  // Linux sends a signal as soon as a file is made in the folder: here, the first of the new ones
std::string changedMeanwhile;

TEST_F(FileSaverOnDiskTest, AFileThatSomebodyChangesMeanwhileIsLeftToThem) {
  changedMeanwhile = b_;
  const auto before = std::signal(SIGIO, [](int) {
    const int file = ::open(changedMeanwhile.c_str(), O_WRONLY | O_TRUNC);
    if (::write(file, "theirs", 6) == 6) ::close(file);
  });
  const int folder = ::open(folder_.Path().c_str(), O_RDONLY | O_DIRECTORY);
  ASSERT_EQ(::fcntl(folder, F_NOTIFY, DN_CREATE), 0);
  const Error error = ErrorOf({ToSave(a_, "new a"), ToSave(b_, "new b")});
  ::close(folder);
  std::signal(SIGIO, before);
  EXPECT_EQ(std::string(error.what()), b_ + ": cannot be saved: it was changed on disk since it was opened");
  EXPECT_EQ(folder_.Read("a.bas") + ", " + folder_.Read("b.bas"), "old a, theirs");
  EXPECT_EQ(NamesIn(folder_.Path()), (std::vector<std::string>{"a.bas", "b.bas"}));
}
#endif

}  // namespace
}  // namespace quorvane::workbench

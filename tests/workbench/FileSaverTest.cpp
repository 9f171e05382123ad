#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "base/Error.h"
#include "support/TempFolder.h"
#include "workbench/save/FileSaver.h"

namespace quorvane::workbench {
namespace {

namespace fs = std::filesystem;

FileToSave ToSave(const std::string& path, std::string bytes) {
  return {path, std::move(bytes), native::FileStamp::Of(path).value()};
}

std::vector<std::string> NamesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

mode_t ModeOf(const std::string& path) {
  struct stat found {};
  return ::stat(path.c_str(), &found) == 0 ? found.st_mode & 07777 : 0;
}

/// The error that saving raises; Number 0 when it raises none.
Error ErrorOf(const std::vector<FileToSave>& files, const RenameFile& rename = {}) {
  try {
    SaveFiles(files, rename);
    return {};
  } catch (const Error& error) {
    return error;
  }
}

class FileSaverTest : public testing::Test {
 protected:
  test::TempFolder folder_;
  const std::string a_ = folder_.Write("a.bas", "old a"), b_ = folder_.Write("b.bas", "old b");
};

TEST_F(FileSaverTest, ReplacesFilesAndKeepsWhatTheyAre) {
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

TEST_F(FileSaverTest, RefusesBeforeAnythingIsWritten) {
  const FileToSave good = ToSave(a_, "new a");
  struct Case {
    const char* words;
    std::function<void()> spoil;
    FileToSave bad;
  };
  const std::string folder = folder_ / "sub";
  fs::create_directory(folder);
  const std::string dangling = folder_.Write("gone.bas", "x");
  const std::vector<Case> cases = {
      {"read-only", [&] { ::chmod(b_.c_str(), 0444); }, ToSave(b_, "new b")},
      {"changed on disk", [&] { folder_.Write("b.bas", "of somebody else"); }, ToSave(b_, "new b")},
      {"no longer on disk", [&] { fs::remove(dangling); }, ToSave(dangling, "y")},
      {"no plain file", [] {}, ToSave(folder, "y")},
      {"two different texts", [] {}, ToSave(a_, "newer a")},
  };
  for (const Case& c : cases) {
    c.spoil();
    const std::string before = folder_.Read("b.bas");
    const auto names = NamesIn(folder_.Path());
    const Error error = ErrorOf({good, c.bad});
    EXPECT_NE(error.Number, 0) << c.words;
    EXPECT_EQ(std::string(error.what()).find(c.bad.path), 0u) << error.what();
    EXPECT_NE(std::string(error.what()).find(c.words), std::string::npos) << error.what();
    EXPECT_EQ(folder_.Read("a.bas"), "old a") << c.words;
    EXPECT_EQ(folder_.Read("b.bas"), before) << c.words;
    EXPECT_EQ(NamesIn(folder_.Path()), names) << c.words;
    ::chmod(b_.c_str(), 0644);
  }
  EXPECT_EQ(ErrorOf({good}).Number, 0);
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

TEST_F(FileSaverTest, AFullDiskLeavesEverythingAsItWas) {
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

TEST_F(FileSaverTest, AFailedRenameTellsWhatWasSaved) {
  const std::string c = folder_.Write("c.bas", "old c");
  const std::vector<FileToSave> files = {ToSave(a_, "new a"), ToSave(b_, "new b"), ToSave(c, "new c")};
  int calls = 0;
  const Error error = ErrorOf(files, [&](const char* from, const char* to) {
    // Every new text is on disk before the first file is touched.
    if (++calls == 1) {
      EXPECT_EQ(NamesIn(folder_.Path()).size(), 6u);
    }
    if (calls < 2) return std::rename(from, to);
    errno = EIO;
    return -1;
  });
  EXPECT_EQ(std::string(error.what()),
            b_ + ": cannot be saved: Input/output error; saved: " + a_ + "; not saved: " + b_ + ", " + c);
  EXPECT_EQ(folder_.Read("a.bas"), "new a");
  EXPECT_EQ(folder_.Read("b.bas"), "old b");
  EXPECT_EQ(folder_.Read("c.bas"), "old c");
  EXPECT_EQ(NamesIn(folder_.Path()), (std::vector<std::string>{"a.bas", "b.bas", "c.bas"}));
}

}  // namespace
}  // namespace quorvane::workbench

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>

#include "native/files/NewFile.h"
#include "workbench/FileSaverFixture.h"

namespace quorvane::workbench {
namespace {

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
      {"read-only", [&] { fs::permissions(b_, fs::perms::owner_read); }, ToSave(b_, "new b")},
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
    fs::permissions(b_, fs::perms::owner_read | fs::perms::owner_write);
  }
  EXPECT_EQ(ErrorOf({good}).Number, 0);
}

TEST_F(FileSaverTest, AFailedRenameTellsWhatWasSaved) {
  const std::string c = folder_.Write("c.bas", "old c");
  const std::vector<FileToSave> files = {ToSave(a_, "new a"), ToSave(b_, "new b"), ToSave(c, "new c")};
  int calls = 0;
  const Error error = ErrorOf(files, [&](const char* from, const char* to) {
    // Every new text is on disk before the first file is touched.
    if (++calls == 1) {
      EXPECT_EQ(NamesIn(folder_.Path()).size(), 10u);  // with second names of the old ones, and the journal
    }
    if (calls < 2) return native::MoveOver(from, to);
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

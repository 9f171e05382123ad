#include <gtest/gtest.h>
#include <windows.h>

#include <cerrno>

#include "base/Text.h"
#include "native/files/AtomicFile.h"
#include "native/files/FileAccess.h"
#include "native/files/FileBytes.h"
#include "native/files/FileStamp.h"
#include "native/files/Leftovers.h"
#include "native/files/NewFile.h"
#include "native/files/ProcessMark.h"
#include "native/files/windows/WideFile.h"
#include "support/Raised.h"
#include "support/Rows.h"

namespace quorvane::native {
namespace {

/// An empty folder, which goes with what is in it.
class WindowsFilesTest : public testing::Test {
 protected:
  WindowsFilesTest() {
    wchar_t temporary[MAX_PATH];
    GetTempPathW(MAX_PATH, temporary);
    folder_ = TextOfWide(temporary) + "quorvane-" + std::to_string(GetCurrentProcessId());
    CreateDirectoryW(WidePath(folder_).c_str(), nullptr);
  }
  ~WindowsFilesTest() override {
    for (auto made = made_.rbegin(); made != made_.rend(); ++made) RemoveDirectoryW(WidePath(*made).c_str());
    RemoveDirectoryW(WidePath(folder_).c_str());
  }

  /// The whole path of "name" or "name+N"; its folders are there then.
  std::string Path(const std::string& name) {
    const std::size_t plus = name.find('+');
    std::string path = folder_;
    for (int i = plus == name.npos ? 0 : std::stoi(name.substr(plus + 1)); i > 0; --i) {
      path += "/" + std::string(40, 'd');
      CreateDirectoryW(WidePath(path).c_str(), nullptr);
      made_.push_back(path);
    }
    return path + "/" + name.substr(0, plus);
  }
  /// How many files lie beside it, itself included.
  static int Neighbours(const std::string& path) {
    WIN32_FIND_DATAW found;
    const HANDLE search =
        FindFirstFileW(WidePath(path.substr(0, path.rfind('/')) + "/" + std::string(1, '*')).c_str(), &found);
    int count = 0;
    if (search == INVALID_HANDLE_VALUE) return -1;
    do {
      if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) ++count;
    } while (FindNextFileW(search, &found) != 0);
    FindClose(search);
    return count;
  }

  std::string folder_;
  std::vector<std::string> made_;
};

TEST_F(WindowsFilesTest, AnyPathCanBeWrittenReadAndReplaced) {
  for (const test::Row& row : test::Rows("native/windows/Files.rows", "Paths")) {
    SCOPED_TRACE(row.Where());
    const std::string path = Path(ToUtf8(row.Text(0)));
    errno = 0;
    EXPECT_FALSE(FileStamp::Of(path));
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(ReadFileBytes(path).error, ENOENT);
    EXPECT_EQ(RealPath(path), "");
    WriteFileWhole(path, "first");
    const FileBytes first = ReadFileBytes(path);
    EXPECT_EQ(first.bytes, "first");
    EXPECT_EQ(FileStamp::Of(path), first.stamp);
    EXPECT_EQ(first.stamp.size, 5);
    EXPECT_TRUE(CanWrite(path));
    const std::string real = RealPath(path);
    EXPECT_TRUE(real.ends_with(path.substr(path.rfind('/')))) << real;
    EXPECT_TRUE(FileStamp::Of(real)->IsSameFile(first.stamp));
    SetFileAttributesW(WidePath(path).c_str(), FILE_ATTRIBUTE_HIDDEN);
    WriteFileWhole(path, std::string("sec\0nd\n", 7));
    const FileBytes second = ReadFileBytes(path);
    EXPECT_EQ(second.bytes, std::string_view("sec\0nd\n", 7));
    EXPECT_FALSE(second.stamp == first.stamp);
    EXPECT_EQ(Neighbours(path), 1) << "nothing temporary is left";
    EXPECT_NE(DeleteFileW(WidePath(path).c_str()), 0);
  }
}

/// What the name says stands at `path`, for as long as this lives.
class InTheWay {
 public:
  InTheWay(const std::string& what, std::string& path) {
    if (what == "no folder") {
      path += "/below";
      return;
    }
    path_ = WidePath(path);
    if (what == "a folder") {
      CreateDirectoryW(path_.c_str(), nullptr);
      return;
    }
    WriteFileWhole(path, "old");
    if (what == "write protection") SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_READONLY);
    if (what == "another program")
      file_ = CreateFileW(path_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  }
  ~InTheWay() {
    if (file_ != INVALID_HANDLE_VALUE) CloseHandle(file_);
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
    if (DeleteFileW(path_.c_str()) == 0) RemoveDirectoryW(path_.c_str());
  }

 private:
  std::wstring path_;
  HANDLE file_ = INVALID_HANDLE_VALUE;
};

TEST_F(WindowsFilesTest, ARefusalIsAClearErrorAndLeavesTheOldFile) {
  for (const test::Row& row : test::Rows("native/windows/Files.rows", "Refusals")) {
    SCOPED_TRACE(row.Where());
    std::string path = Path("module.bas");
    const std::string whole = path;
    {
      const InTheWay obstacle(row.Bytes(0), path);
      const auto error = test::Raised([&] { WriteFileWhole(path, "new"); });
      EXPECT_EQ(error, row.Number(1));
      EXPECT_TRUE(error.Says(path) && error.Says(row.Bytes(2))) << error;
      const int read = ReadFileBytes(path).error;
      const std::string name = read == ENOENT ? "ENOENT" : read == EISDIR ? "EISDIR" : read == EBUSY ? "EBUSY" : "";
      EXPECT_EQ(name, row.Bytes(3)) << read;
      if (read == 0) {
        EXPECT_EQ(ReadFileBytes(path).bytes, "old");
      }
      if (row.Bytes(0) != "no folder") {
        EXPECT_LE(Neighbours(whole), 1) << "nothing temporary is left";
      }
    }
    EXPECT_FALSE(FileStamp::Of(whole));
  }
}

/// What a process left that has ended goes with the next save of that file; "own" stands for this process's mark.
TEST_F(WindowsFilesTest, TheNextSaveRemovesWhatAnEndedProcessLeft) {
  for (const test::Row& row : test::Rows("native/windows/Files.rows", "Leftovers")) {
    // As the system's own file dialogs name a file, where the row asks for it.
    const std::string path = ToUtf8(ReplaceAll(FromUtf8(Path("module.bas")), u"/", row.Text(2)));
    const std::string mark = ToUtf8(ReplaceAll(row.Text(0), u"own", FromUtf8(ProcessMark())));
    const std::string left = TemporaryPrefix(path) + mark + "-000001";
    CloseHandle(CreateFileW(WidePath(left).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    WriteFileWhole(path, "new");
    EXPECT_EQ(DeleteFileW(WidePath(left).c_str()) != 0 ? "stays" : "goes", row.Bytes(1)) << row.Where();
    EXPECT_NE(DeleteFileW(WidePath(path).c_str()), 0) << row.Where();
  }
}

TEST_F(WindowsFilesTest, PathsForTheWideFunctions) {
  const std::string letters(250, 'n');
  const auto filled = [&](const std::string& cell) { return ReplaceAll(FromUtf8(cell), u"@", FromUtf8(letters)); };
  for (const test::Row& row : test::Rows("native/windows/Files.rows", "WidePaths")) {
    const std::wstring wide = WidePath(ToUtf8(filled(row.Bytes(0))));
    EXPECT_EQ(std::u16string(wide.begin(), wide.end()), filled(row.Bytes(1))) << row.Where();
    EXPECT_EQ(TextOfWide(wide).find('?'), std::string::npos) << row.Where();
  }
}

}  // namespace
}  // namespace quorvane::native

#include <gtest/gtest.h>

#include "base/Text.h"
#include "native/settings/FilePrivateProfile.h"
#include "native/settings/IniText.h"
#include "support/Rows.h"
#include "support/TempFolder.h"

namespace quorvane::test {

using native::FilePrivateProfile;
using native::IniText;

TEST(IniText, ChangesNothingElse) {
  for (const Row& row : Rows("native/IniText.rows", "Edits")) {
    SCOPED_TRACE(row.Where());
    IniText text(row.Bytes(0));
    EXPECT_EQ(text.Bytes(), row.Bytes(0));
    if (row.Bytes(3) != "(gone)") {
      text.Set(row.Bytes(1), row.Bytes(2), row.Bytes(3));
      EXPECT_EQ(text.Get(row.Bytes(1), row.Bytes(2)), row.Bytes(3));
    } else {
      text.RemoveKey(row.Bytes(1), row.Bytes(2));
    }
    EXPECT_EQ(text.Bytes(), row.Bytes(4));
  }
}

class FilePrivateProfileTest : public ::testing::Test {
 protected:
  std::string Read(const std::string& file, std::size_t size = 64) {
    std::string buffer(size + 4, '~');
    const std::size_t length = profile.Read("S", "k", "usual ", buffer.data(), size, FromUtf8(file));
    EXPECT_EQ(buffer[length], '\0');
    EXPECT_EQ(buffer.substr(length + 1), std::string(size + 3 - length, '~')) << "what lies behind stays as it was";
    return buffer.substr(0, length);
  }
  bool Write(const std::string& file, const std::string& value) {
    return profile.Write("S", "k", value, FromUtf8(file));
  }

  TempFolder folder;
  FilePrivateProfile profile{folder / "home/config"};
};

TEST_F(FilePrivateProfileTest, FillsTheBuffer) {
  const std::string file = folder.Write("a.ini", "[S]\nk=value\n");
  EXPECT_EQ(Read(file), "value");
  EXPECT_EQ(Read(file, 6), "value");
  EXPECT_EQ(Read(file, 5), "valu");
  EXPECT_EQ(Read(file, 1), "");
  EXPECT_EQ(Read(folder / "none.ini"), "usual");
}

TEST_F(FilePrivateProfileTest, KeepsAFileThatCannotBeWrittenInTheUsersFolder) {
  folder.Write("plain", "");
  const std::string file = folder / "plain/config.ini";  // no folder at all, so that even an administrator fails
  EXPECT_EQ(Read(file), "usual");
  EXPECT_TRUE(Write(file, "1"));
  EXPECT_EQ(folder.Read("home/config/config.ini"), "[S]\r\nk=1\r\n");
  EXPECT_EQ(Read(file), "1");

  const std::string writable = folder / "config.ini";
  EXPECT_EQ(Read(writable), "usual") << "the user's copy stands in for nothing that can be written";
  EXPECT_TRUE(Write(writable, "2"));
  EXPECT_EQ(folder.Read("config.ini"), "[S]\r\nk=2\r\n");
  EXPECT_EQ(Read(file), "1");
}

TEST_F(FilePrivateProfileTest, WhatCannotBeReadIsNotReplaced) {
  std::filesystem::create_directories(folder / "a.ini");
  EXPECT_EQ(Read(folder / "a.ini"), "usual");
  EXPECT_FALSE(Write(folder / "a.ini", "1"));
}

TEST_F(FilePrivateProfileTest, RefusesWhatALineCannotHold) {
  const std::string file = folder.Write("a.ini", "[S]\nk=1\n");
  EXPECT_FALSE(Write(file, "a\r\n[T]"));
  EXPECT_FALSE(profile.Write("S\n", "k", "v", FromUtf8(file)));
  EXPECT_FALSE(profile.Write("S", "a=b", "v", FromUtf8(file)));
  EXPECT_EQ(folder.Read("a.ini"), "[S]\nk=1\n");
  EXPECT_TRUE(Write(file, std::string("x\0y", 3)));
  EXPECT_EQ(Read(file), "x") << "a value ends at its first zero";
  EXPECT_TRUE(profile.Write("S", std::nullopt, std::nullopt, FromUtf8(file)));
  EXPECT_EQ(folder.Read("a.ini"), "");
}

}  // namespace quorvane::test

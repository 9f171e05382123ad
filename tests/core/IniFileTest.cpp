#include <gtest/gtest.h>

#include "addin/core/IniFile.h"
#include "native/settings/FilePrivateProfile.h"
#include "support/Raised.h"
#include "support/TempFolder.h"
#include "support/TestPlatform.h"

namespace quorvane::test {

/// INI files on a real disk, in code page 936.
class IniFileTest : public ::testing::Test {
 protected:
  IniFileTest() {
    platform.iniFiles = &profile;
    ini.SetINIFileName(FromUtf8(folder / "config.ini"));
  }
  ~IniFileTest() override { platform.iniFiles = nullptr; }

  TempFolder folder;
  native::FilePrivateProfile profile{folder / "user"};
  TestPlatform platform{"936"};
  IniFile ini;
};

TEST_F(IniFileTest, ReadsWithADefault) {
  EXPECT_EQ(ini.GetIniKey(u"S", u"K"), u"") << "no file";
  EXPECT_EQ(ini.GetIniKey(u"S", u"K", u"  a b  "), u"a b");
  folder.Write("config.ini", "[S]\r\nK =  x y\t\r\nQ=\"  in quotes \"\r\nEmpty=\r\n");
  EXPECT_EQ(ini.GetIniKey(u"s", u"k", u"d"), u"x y");
  EXPECT_EQ(ini.GetIniKey(u"S", u"Empty", u"d"), u"");
  EXPECT_EQ(ini.GetIniKey(u"S", u"Missing", u"d"), u"d");
  EXPECT_EQ(ini.GetIniKey(u"T", u"K", u"d"), u"d");
  EXPECT_EQ(ini.GetIniKey(u"S", u"Q"), u"in quotes ") << "the zero byte guards the blank at the end";
}

TEST_F(IniFileTest, CutsAt1023Bytes) {
  ini.WriteIniKey(u"S", u"Long", std::u16string(1023, u'x') + u"yz");
  EXPECT_EQ(ini.GetIniKey(u"S", u"Long"), std::u16string(1023, u'x'));
  ini.WriteIniKey(u"S", u"Wide", std::u16string(600, u'中'));
  EXPECT_EQ(ini.GetIniKey(u"S", u"Wide").substr(0, 511), std::u16string(511, u'中')) << "two bytes each";
}

TEST_F(IniFileTest, WritesInTheCodePage) {
  ini.WriteIniKey(u"节", u"键", u"中文é");
  EXPECT_EQ(folder.Read("config.ini"), "[\xBD\xDA]\r\n\xBC\xFC=\xD6\xD0\xCE\xC4\xA8\xA6\r\n");
  ini.WriteIniKey(u"节", u"键", u"한x");
  EXPECT_EQ(ini.GetIniKey(u"节", u"键"), u"?x") << "a character that the page lacks";
}

TEST_F(IniFileTest, DeletesKeysAndSections) {
  EXPECT_TRUE(ini.DelIniKey(u"A", u"x"));
  EXPECT_TRUE(ini.DelIniSec(u"A"));
  EXPECT_FALSE(std::filesystem::exists(folder / "config.ini")) << "there was nothing to delete";
  folder.Write("config.ini", "[A]\nx=1\ny=2\n[B]\nx=3\n");
  EXPECT_TRUE(ini.DelIniKey(u"A", u"x"));
  EXPECT_EQ(folder.Read("config.ini"), "[A]\ny=2\n[B]\nx=3\n");
  EXPECT_TRUE(ini.DelIniSec(u"a"));
  EXPECT_EQ(folder.Read("config.ini"), "[B]\nx=3\n");
  folder.Write("file", "");
  native::FilePrivateProfile nowhere(folder / "file/user");
  platform.iniFiles = &nowhere;
  ini.SetINIFileName(FromUtf8(folder / "file/config.ini"));
  EXPECT_FALSE(ini.DelIniSec(u"A"));
  ini.WriteIniKey(u"A", u"x", u"1");  // lost without a word
  EXPECT_EQ(ini.GetIniKey(u"A", u"x", u"d"), u"d");
  platform.iniFiles = nullptr;
  EXPECT_EQ(Raised([&] { ini.GetIniKey(u"A", u"x"); }), 445);
}

}  // namespace quorvane::test

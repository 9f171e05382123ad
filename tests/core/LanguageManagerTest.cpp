#include <gtest/gtest.h>

#include <fstream>

#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "support/Raised.h"
#include "support/TestPlatform.h"

namespace quorvane::test {

class LanguageManagerTest : public ::testing::Test {
 protected:
  LanguageManagerTest() { platform.app.Path = u"/opt/quorvane"; }

  std::string& Config() { return platform.profile.Files[u"/opt/quorvane/config.ini"]; }

  TestPlatform platform;
};

/// strings.tsv has a line for each text: the id, then both languages in double quotes, with \r and \n for a line end.
TEST_F(LanguageManagerTest, EveryTextInBothLanguages) {
  LanguageManager language;
  std::ifstream table(QUORVANE_SOURCE_DIR "/tests/core/strings.tsv");
  std::string line;
  std::getline(table, line);
  for (std::int32_t id = 0; id < 1000; ++id) {
    std::u16string entry = ToText(id);
    for (language.Language = 0; language.Language < 2; ++language.Language) {
      const auto text = language.Entry(static_cast<StringId>(id));
      if (text) entry += u"\t\"" + ReplaceAll(ReplaceAll(*text, u"\r", u"\\r"), u"\n", u"\\n") + u"\"";
    }
    if (std::stoi(line) != id) {
      EXPECT_EQ(entry, ToText(id)) << "no such text";
      continue;
    }
    EXPECT_EQ(ToUtf8(entry), line);
    if (!std::getline(table, line)) line = "0";
  }
  EXPECT_EQ(line, "0") << "the table has more";
}

TEST_F(LanguageManagerTest, TheChoiceLivesInTheFile) {
  {
    LanguageManager first;
    EXPECT_EQ(first.Language, 0);
    EXPECT_EQ(first.GetString(StringId::ReplaceLabel), u"替换(&L)");
    EXPECT_EQ(Config(), "");
  }
  EXPECT_EQ(Config(), "[Language Setting]\r\nLanguage=0\r\n");
  {
    LanguageManager second;
    second.Language = 1;
    EXPECT_EQ(second.GetString(StringId::TabCaption, {u"a"}), u"Search 'a'");
  }
  EXPECT_EQ(Config(), "[Language Setting]\r\nLanguage=1\r\n");
  EXPECT_EQ(LanguageManager().Language, 1);
}

TEST_F(LanguageManagerTest, WithoutIniFilesNothingIsReadOrWritten) {
  Config() = "[Language Setting]\nLanguage=1\n";
  platform.iniFiles = nullptr;
  EXPECT_EQ(LanguageManager().Language, 0);
  EXPECT_EQ(Config(), "[Language Setting]\nLanguage=1\n");
}

TEST_F(LanguageManagerTest, AFileThatCannotBeWrittenLosesTheChoiceSilently) {
  platform.profile.ReadOnly = true;
  {
    LanguageManager language;
    language.Language = 1;
  }
  EXPECT_EQ(Config(), "");
}

TEST_F(LanguageManagerTest, ADamagedFile) {
  Config() = "[Language Setting]\nLanguage=English\n";
  EXPECT_EQ(Raised([] { LanguageManager(); }), "13 Type mismatch: Language = \"English\" (/opt/quorvane/config.ini)");
  EXPECT_EQ(Config(), "[Language Setting]\nLanguage=English\n") << "stays as it is";

  EXPECT_EQ(LanguageManager::Replace(1), u"/opt/quorvane/config.ini.damaged");
  EXPECT_EQ(Config(), "[Language Setting]\nLanguage=1\n");
  EXPECT_EQ(platform.profile.Files[u"/opt/quorvane/config.ini.damaged"], "[Language Setting]\nLanguage=English\n");
  platform.profile.ReadOnly = true;
  EXPECT_EQ(Raised([] { LanguageManager::Replace(0); }), "75 Path/File access error: /opt/quorvane/config.ini");

  for (const char* number : {"2", "-1", "2147483647", "536870912"}) {
    Config() = std::string("[Language Setting]\nLanguage=") + number + "\n";
    EXPECT_EQ(Raised([] { LanguageManager().GetString(StringId::Area); }), 326) << number;
  }
}

TEST_F(LanguageManagerTest, AnErrorIsShownEvenWithoutALanguage) {
  Globals::Language().Language = 7;
  platform.prompts.Answers.push_back(1);
  try {
    throw Error(9, u"words");
  } catch (...) {
    ErrorManager().ShowErr();
  }
  EXPECT_EQ(platform.prompts.Shown.at(0).text, u"9: words");
}

/// A form with captions, and one without.
class CaptionedForm final : public forms::Form, public IVersionUI {
 public:
  explicit CaptionedForm(std::u16string name) : Form(std::move(name)) {}
  void Update() override { SetCaption(Globals::Language().GetString(StringId::OptionsTitle)); }
};

TEST_F(LanguageManagerTest, UpdateAllUIReachesWhatIsOpen) {
  const auto open = std::make_shared<CaptionedForm>(u"open");
  const auto closed = std::make_shared<CaptionedForm>(u"closed");
  const auto plain = std::make_shared<forms::Form>(u"plain");
  plain->Load();
  open->Load();
  std::vector<std::u16string> told;
  const auto onChange = Globals::Language().Changed.Subscribe([&] { told.push_back(open->Caption()); });
  Globals::Language().Language = 0;
  Globals::Language().UpdateAllUI();
  EXPECT_EQ(open->Caption(), u"Quorvane插件选项");
  EXPECT_EQ(closed->Caption(), u"");
  Globals::Language().Language = 1;
  EXPECT_EQ(open->Caption(), u"Quorvane插件选项");
  Globals::Language().UpdateAllUI();
  EXPECT_EQ(open->Caption(), u"Quorvane Options");
  EXPECT_EQ(told, (std::vector<std::u16string>{u"Quorvane插件选项", u"Quorvane Options"})) << "after the forms";
  open->Unload();
  plain->Unload();
}

}  // namespace quorvane::test

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "DialogWorld.h"
#include "base/Text.h"
#include "dialogs/frmAbout.h"
#include "platform/forms/Forms.h"
#include "services/LanguageManager.h"
#include "support/TempFolder.h"

namespace quorvane {
namespace {

class AboutTest : public test::DialogFixture {
 protected:
  AboutTest() {
    platform.app.Path = folder.Path().u16string();
    platform.app.ProjectHost = u"host.example:8080";
  }
  frmAbout& About() { return dynamic_cast<frmAbout&>(*TheForms().Instance(u"frmAbout")); }
  frmAbout& Open() {
    About().Show();
    return About();
  }

  test::TempFolder folder;
};

TEST_F(AboutTest, CaptionsInBothLanguages) {
  platform.app.Title = u"The add-in";
  frmAbout& a = Open();
  const auto texts = [&] {
    std::string all = ToUtf8(a.Caption());
    for (const auto& control : a.Controls().All()) {
      const auto* captioned = dynamic_cast<const CaptionedControl*>(control.get());
      if (captioned != nullptr) all += "|" + ToUtf8(captioned->Caption());
    }
    return all;
  };
  EXPECT_EQ(texts(),
            "About The add-in|The add-in|Version 4.13.0.129|Read me|Licence|Website:|host.example:8080|Email:|"
            "quorvane@host.example|&Ok");
  Globals::Language().Language = 0;
  Globals::Language().UpdateAllUI();
  EXPECT_EQ(texts().substr(0, texts().find('|')), "关于 The add-in");
  EXPECT_EQ(a.lbl网址->Caption(), Globals::Language().GetString(157));
}

TEST_F(AboutTest, TextsBesideTheProgram) {
  EXPECT_EQ(ToUtf8(Open().txt说明->Text() + About().txt许可->Text()), "") << "no files, no message";
  EXPECT_TRUE(About().Unload());
  folder.Write("ReadMe.txt",
               "Gr\xFC\xDF"
               "e\r\n\x1A"
               "end");
  folder.Write("License.txt", "");
  EXPECT_EQ(ToUtf8(Open().txt说明->Text()),
            "Grüße\r\n\x1A"
            "end")
      << "code page 1252";
  EXPECT_EQ(About().txt许可->Text(), u"");
  About().txt说明->Edit(u"typed");
  EXPECT_EQ(ToUtf8(About().txt说明->Text()),
            "Grüße\r\n\x1A"
            "end")
      << "locked";
  About().cmdOK->Press();
  folder.Write("License.txt", "new");
  EXPECT_EQ(Open().txt许可->Text(), u"new") << "loaded anew";
  EXPECT_TRUE(About().Unload());

  std::filesystem::remove(folder / "ReadMe.txt");
  std::filesystem::create_directory(folder / "ReadMe.txt");
  platform.prompts.Answers = {1};
  EXPECT_TRUE(Open().Visible());
  ASSERT_EQ(platform.prompts.Shown.size(), 1u) << "a file that cannot be read is told";
  EXPECT_NE(platform.prompts.Shown[0].text.find(u"ReadMe.txt"), std::u16string::npos);
}

TEST_F(AboutTest, LinksAndTheWaysOut) {
  frmAbout& a = Open();
  a.lblProjectUrl->Press();
  a.lblEmail->Press();
  EXPECT_EQ(platform.shell.Opened,
            (std::vector<std::u16string>{u"http://host.example:8080/p/vbquorvane/", u"mailto:quorvane@host.example"}));
  Globals::gobjUpdater.reset();
  platform.prompts.Answers = {1};
  a.lblProjectUrl->Press();
  EXPECT_EQ(platform.prompts.Shown.size(), 1u);
  EXPECT_TRUE(a.Visible());
  for (const std::int16_t key : {std::int16_t{13}, std::int16_t{27}}) {
    Open().SetFocus(About().txt许可);
    EXPECT_TRUE(About().PressKey(key, 0));
    EXPECT_EQ(TheForms().Count(), 0);
  }
  EXPECT_EQ(Open().Left(), 200) << "in the middle of the screen";
  EXPECT_TRUE(About().PressAccessKey(u'o'));
  EXPECT_EQ(TheForms().Count(), 0);
  platform.loop.Steps = {[&] { EXPECT_TRUE(About().CloseByUser()); }};
  About().Show(FormModal::Modal);
  EXPECT_EQ(TheForms().Count(), 0);
}

}  // namespace
}  // namespace quorvane

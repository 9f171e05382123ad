#include <gtest/gtest.h>

#include "DialogWorld.h"
#include "addin/core/LanguageManager.h"
#include "addin/dialogs/frmAbout.h"
#include "platform/forms/Forms.h"

namespace quorvane {
namespace {

class AboutTest : public test::DialogFixture {
 protected:
  AboutTest() {
    platform.app.Path = folder.Path().u16string();
    platform.app.ProjectHost = u"host.example:8080";
  }
  frmAbout& About() { return dynamic_cast<frmAbout&>(*forms::TheForms().Instance(u"frmAbout")); }
  frmAbout& Open() {
    About().Show();
    return About();
  }

  test::TempFolder folder;
};

TEST_F(AboutTest, CaptionsInBothLanguages) {
  platform.app.Title = u"The add-in";
  frmAbout& a = Open();
  EXPECT_EQ(test::Captions(a),
            "About The add-in|The add-in|Version 4.13.0.129|Read me|Licence|Website:|host.example:8080|Email:|"
            "quorvane@host.example|&Ok");
  Globals::Language().Language = 0;
  Globals::Language().UpdateAllUI();
  EXPECT_EQ(a.Caption(), u"关于 The add-in");
  EXPECT_EQ(a.lbl网址->Caption(), Globals::Language().GetString(StringId::Website));
}

TEST_F(AboutTest, TextsBesideTheProgram) {
  folder.Write("ReadMe.txt", "Gr\xFC\xDF\r\n\x1A end");
  folder.Write("License.txt", "may");
  EXPECT_EQ(ToUtf8(Open().txt说明->Text()), "Grüß\r\n\x1A end") << "code page 1252";
  EXPECT_EQ(About().txt许可->Text(), u"may");
  EXPECT_TRUE(About().txt说明->Locked() && About().txt许可->Locked());
  EXPECT_TRUE(About().Unload());

  std::filesystem::remove(folder / "ReadMe.txt");
  std::filesystem::create_directory(folder / "ReadMe.txt");
  platform.prompts.Answers = {1};
  EXPECT_TRUE(Open().Visible());
  ASSERT_EQ(platform.prompts.Shown.size(), 1u) << "a file that cannot be read is told";
  EXPECT_NE(platform.prompts.Shown[0].text.find(u"ReadMe.txt"), std::u16string::npos);
}

TEST_F(AboutTest, ALinkThatFailsAndTheWaysOut) {
  frmAbout& a = Open();
  platform.app.ProjectHost = u"example.invalid";
  platform.prompts.Answers = {1, 1};
  a.lblProjectUrl->Press();
  a.lblEmail->Press();
  EXPECT_EQ(platform.prompts.Shown.size(), 2u) << "there is no such address";
  EXPECT_TRUE(platform.shell.Opened.empty());
  platform.prompts.Shown.clear();
  Globals::gobjUpdater.reset();
  platform.prompts.Answers = {1};
  a.lblProjectUrl->Press();
  EXPECT_EQ(platform.prompts.Shown.size(), 1u);
  EXPECT_TRUE(a.Visible());
  EXPECT_EQ(a.Left(), 200) << "in the middle of the screen";
  EXPECT_TRUE(a.PressAccessKey(u'o'));
  EXPECT_EQ(forms::TheForms().Count(), 0);
  platform.loop.Steps = {[&] { EXPECT_TRUE(About().CloseByUser()); }};
  About().Show(forms::FormModal::Modal);
  EXPECT_EQ(forms::TheForms().Count(), 0);
}

}  // namespace
}  // namespace quorvane

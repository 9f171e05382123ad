#include <gtest/gtest.h>

#include "addin/connect/Connect.h"
#include "addin/connect/SharedObjects.h"
#include "addin/core/FileSystem.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/ObjectRegistry.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "support/ConnectionFixture.h"
#include "support/Raised.h"
#include "support/Rows.h"
#include "support/TestPlatform.h"
#include "workbench/model/HostAddins.h"
#include "workbench/model/HostWindows.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/GroupBuilder.h"

namespace quorvane {
namespace {

using test::Log;
using test::Raised;

class Recorded final : public ILib {
 public:
  Recorded(std::string name, Log& log, bool fails) : name_(std::move(name)), log_(log), fails_(fails) {}

  void Setup() override { Note("Setup"); }
  void TearDown() override { Note("TearDown"); }

 private:
  void Note(const std::string& what) {
    log_.push_back(name_ + " " + what);
    if (fails_) RaiseError(ErrorNumber::Overflow);
  }

  std::string name_;
  Log& log_;
  bool fails_;
};

class GlobalsTest : public testing::Test {
 protected:
  void Register(const std::string& name, bool fails = false) {
    const auto object = std::make_shared<Recorded>(name, log_, fails);
    Globals::Registry().Add(name, object, LibOf(*object));
  }

  Log log_;  // outlives what writes to it
  test::TestPlatform platform_;
};

TEST_F(GlobalsTest, ReplaceArgsFillsTheLongerPlaceholderFirst) {
  for (const test::Row& row : test::Rows("connect/Globals.rows", "ReplaceArgs")) {
    std::vector<std::u16string> args;
    for (const std::string& arg : row.List(1)) args.push_back(FromUtf8(arg));
    EXPECT_EQ(ToUtf8(Globals::ReplaceArgs(row.Text(0), args)), row.Bytes(2)) << row.Where();
  }
}

TEST_F(GlobalsTest, BothWalksGoInTheOrderOfRegisteringAndOneEndsAtAFailure) {
  Register("A");
  Globals::Registry().Add("Plain", std::make_shared<int>(1), nullptr);
  Register("B", true);
  Register("C");
  EXPECT_EQ(Raised([&] { Register("A"); }), 457);
  EXPECT_EQ(Raised([] { Globals::SetupObjects(); }), 6);
  Globals::TearDownObjects();
  EXPECT_EQ(log_, (Log{"A Setup", "B Setup", "A TearDown", "B TearDown", "C TearDown"}));
  Globals::ReleaseObjects();
  log_.clear();
  Globals::SetupObjects();
  EXPECT_EQ(log_, Log{});
}

TEST_F(GlobalsTest, UnloadFormsTriesAsOftenAsThereAreForms) {
  struct Stubborn final : forms::Form {
    Stubborn(const std::u16string& name, Log& theLog, bool refuses) : Form(name), log(theLog), stays(refuses) {}
    void Form_QueryUnload(bool& cancel, forms::UnloadMode mode) override {
      log.push_back(ToUtf8(Name()) + " " + std::to_string(static_cast<int>(mode)));
      cancel = stays;
    }
    Log& log;
    bool stays;
  };
  const auto a = std::make_shared<Stubborn>(u"a", log_, false);
  const auto b = std::make_shared<Stubborn>(u"b", log_, true);
  const auto c = std::make_shared<Stubborn>(u"c", log_, false);
  for (const auto& form : {a, b, c}) form->Show();
  Globals::UnloadForms();
  EXPECT_EQ(log_, (Log{"a 1", "b 1", "b 1"}));
  b->stays = false;
  Globals::UnloadForms();
  EXPECT_EQ(forms::TheForms().Count(), 0);
}

TEST_F(GlobalsTest, TheResultDialogNeedsTheHostItsRecordAndADocument) {
  EXPECT_EQ(Raised([] { Globals::CreateResultDialog(); }), 91);
  const std::shared_ptr<workbench::Workbench> host = workbench::Group{}.Build(platform_.AnsiCodePage());
  Globals::gobjVBE = host;
  EXPECT_EQ(Raised([] { Globals::CreateResultDialog(); }), 91) << "no connection";
  Globals::gobjConnect = std::make_shared<Connect>();
  EXPECT_EQ(Raised([] { Globals::CreateResultDialog(); }), 9) << "no record of the add-in";
  host->TheAddins()->Register(u"QuorvaneForVB6.Connect");
  EXPECT_EQ(Raised([] { Globals::CreateResultDialog(); }), 429) << "no such document";
  const auto makes = [&](std::function<std::shared_ptr<vbide::Document>()> factory) {
    host->TheWindows()->RegisterDocumentFactory(u"QuorvaneForVB6.ResultDialog", std::move(factory));
  };
  makes([] { return std::make_shared<vbide::Document>(); });
  EXPECT_EQ(Raised([] { Globals::CreateResultDialog(); }), 13) << "no result list";
  makes([&] { return std::make_shared<test::RecordedDoc>(log_); });
  const auto doc = Globals::CreateResultDialog();
  ASSERT_NE(doc, nullptr);
  const auto& window = *host->TheWindows()->ToolWindows().back();
  EXPECT_EQ(Globals::gobjToolWindow.get(), &window);
  EXPECT_EQ(window.Caption(), u"Search result");
  EXPECT_EQ(window.GuidPosition(), u"{CCE2FDE8-B0EC-4528-9A82-23AE56A913CB}");
  EXPECT_EQ(window.TheAddIn()->ProgId(), u"QuorvaneForVB6.Connect");
  EXPECT_EQ(std::dynamic_pointer_cast<IResultListDoc>(window.TheDocument()), doc);
}

TEST_F(GlobalsTest, ExtensionOfAFileName) {
  for (const test::Row& row : test::Rows("connect/Globals.rows", "Extension")) {
    EXPECT_EQ(Globals::Files().GetExtensionName(row.Text(0)), row.Text(1)) << row.Where();
  }
}

}  // namespace
}  // namespace quorvane

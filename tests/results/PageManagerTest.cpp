#include <gtest/gtest.h>

#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/results/PageManager.h"
#include "support/ConnectionFixture.h"
#include "support/Raised.h"
#include "support/Rows.h"
#include "support/TestPlatform.h"

namespace quorvane {
namespace {

using test::Log;
using test::Raised;

/// A manager on a tab bar with the plus tab alone; every change of the current page is written down.
class World {
 public:
  World() {
    PageManager::SetPageFactory([this] { return std::make_shared<test::RecordedPage>(log_); });
    doc_ = std::make_shared<test::RecordedDoc>(log_);
    Globals::gobjResultDoc = doc_;
    manager_.Setup();
    onChange_ = manager_.TabChange.Subscribe([this] {
      const auto page = manager_.ActivePage();
      log_.push_back("change " + (page ? ToUtf8(page->Key()) : "nothing"));
    });
    log_.clear();
  }
  ~World() {
    onChange_.Reset();
    manager_.TearDown();
    Globals::gobjResultDoc.reset();
    PageManager::SetPageFactory(nullptr);
  }

  /// The tabs in order, the selected one in brackets, then the pages.
  std::string State() const {
    std::string text;
    for (const auto& tab : doc_->tabControl->Tabs()) {
      const std::string key = ToUtf8(tab->Key());
      text += tab->Selected() ? "[" + key + "] " : key + " ";
    }
    text += "|";
    for (const auto& page : *manager_.mcolPages) text += " " + ToUtf8(page->Key());
    return text;
  }
  std::shared_ptr<forms::Tab> TabOf(const std::u16string& key) { return doc_->tabControl->Item(key); }
  void Pages(int count) {
    for (int i = 0; i < count; ++i) manager_.AddNewPage();
    log_.clear();
  }

  Log log_;  // outlives what writes to it
  test::TestPlatform platform_;
  std::shared_ptr<test::RecordedDoc> doc_;
  PageManager manager_;
  Subscription onChange_;
};

class PageManagerTest : public testing::Test, public World {};

TEST_F(PageManagerTest, ANewPageIsReadyBeforeItIsSelected) {
  EXPECT_EQ(manager_.ActivePage(), nullptr);
  manager_.AddNewPage();
  EXPECT_EQ(log_, (Log{"Search1 Setup", "change Search1", "change Search1"}));
  EXPECT_EQ(State(), "[Search1] AddNewTab | Search1");
  const auto page = std::dynamic_pointer_cast<test::RecordedPage>(manager_.ActivePage());
  EXPECT_EQ(page->tab->Caption(), u"Search1");
  EXPECT_EQ(page->tab->IconIndex(), -1);
  EXPECT_TRUE(page->tab->CanClose());
  EXPECT_TRUE(page->panel->Visible());

  const auto fixed = std::dynamic_pointer_cast<test::RecordedPage>(manager_.Add(u"Fixed", false));
  EXPECT_EQ(State(), "Search1 [Fixed] AddNewTab | Search1 Fixed");
  EXPECT_FALSE(fixed->tab->CanClose());
  EXPECT_FALSE(page->panel->Visible());
  EXPECT_EQ(Raised([&] { manager_.Add(u"Fixed", true); }), 457);
}

TEST_F(PageManagerTest, ThePlusTabMakesAPageAndIsNoRestingPlace) {
  doc_->tabControl->PressTab(TabOf(u"AddNewTab"), 2, 0, 0, 0);
  EXPECT_EQ(State(), "[AddNewTab] |");
  doc_->tabControl->PressTab(TabOf(u"AddNewTab"), 1, 0, 0, 0);
  doc_->tabControl->PressTab(TabOf(u"AddNewTab"), 1, 0, 0, 0);
  EXPECT_EQ(State(), "Search1 [Search2] AddNewTab | Search1 Search2");
  onChange_.Reset();
  TabOf(u"Search1")->Select();
  TabOf(u"AddNewTab")->Select();
  EXPECT_EQ(manager_.ActivePage()->Key(), u"Search2");
  EXPECT_EQ(State(), "Search1 [Search2] AddNewTab | Search1 Search2");
}

TEST(PageManagerClosingTest, EachWayOfClosing) {
  const std::map<std::string, std::function<void(World&, const std::u16string&)>> ways = {
      {"middle button", [](World& w, const auto& key) { w.doc_->tabControl->PressTab(w.TabOf(key), 4, 0, 0, 0); }},
      {"double click", [](World& w, const auto& key) { w.doc_->tabControl->DoubleClickTab(w.TabOf(key)); }},
      {"close button", [](World& w, const auto& key) { w.doc_->tabControl->PressClose(w.TabOf(key)); }},
      {"by code", [](World& w, const auto& key) { w.manager_.mcolPages->Remove(key); }},
      {"all but", [](World& w, const auto& key) { w.manager_.mcolPages->RemoveExcept(key); }},
      {"all",
       [](World& w, const auto&) {
         for (int twice = 0; twice < 2; ++twice) w.manager_.mcolPages->RemoveAll();
       }},
      {"at the end", [](World& w, const auto&) { w.manager_.TearDown(); }},
  };
  for (const test::Row& row : test::Rows("results/PageManager.rows", "Closing")) {
    SCOPED_TRACE(row.Where());
    World world;
    world.Pages(3);
    ways.at(row.Bytes(0))(world, row.Text(1));
    EXPECT_EQ(world.State(), row.Bytes(2));
    EXPECT_EQ(world.log_, row.List(3));
  }
}

TEST_F(PageManagerTest, APassiveRemovalLeavesTheTabAndAFixedPageStays) {
  Pages(2);
  manager_.mcolPages->Remove(u"Search1", true);
  EXPECT_EQ(State(), "Search1 [Search2] AddNewTab | Search2");
  manager_.Add(u"Fixed", false);
  for (const auto* gesture : {"middle", "double", "close"}) {
    if (gesture[0] == 'm') doc_->tabControl->PressTab(TabOf(u"Fixed"), 4, 0, 0, 0);
    if (gesture[0] == 'd') doc_->tabControl->DoubleClickTab(TabOf(u"Fixed"));
    if (gesture[0] == 'c') doc_->tabControl->PressClose(TabOf(u"Fixed"));
    EXPECT_EQ(State(), "Search1 Search2 [Fixed] AddNewTab | Search2 Fixed") << gesture;
  }
}

TEST_F(PageManagerTest, NamesGoOnCountingInTheLanguageOfTheMoment) {
  Pages(2);
  manager_.mcolPages->RemoveAll();
  EXPECT_EQ(manager_.ActivePage(), nullptr);
  manager_.AddNewPage();
  Globals::Language().Language = 0;
  manager_.AddNewPage();
  EXPECT_EQ(State(), "Search3 [搜索4] AddNewTab | Search3 搜索4");
}

TEST_F(PageManagerTest, TheCounterEndsInAnOverflow) {
  onChange_.Reset();
  for (int i = 0; i < 32767; ++i) {
    manager_.AddNewPage();
    manager_.mcolPages->RemoveAll();
  }
  EXPECT_EQ(Raised([&] { manager_.AddNewPage(); }), 6);
  EXPECT_EQ(State(), "[AddNewTab] |");
}

TEST_F(PageManagerTest, ThePlusTabStaysUnclosableWhenTheBarGoesOffAndOn) {
  Pages(1);
  for (const bool enabled : {false, true}) {
    TabOf(u"AddNewTab")->SetCanClose(true);
    manager_.SetBarEnabled(enabled);
    EXPECT_EQ(manager_.BarEnabled(), enabled);
    EXPECT_EQ(doc_->tabControl->Enabled(), enabled);
    EXPECT_FALSE(TabOf(u"AddNewTab")->CanClose());
  }
}

TEST_F(PageManagerTest, AFailureInAnEventIsShownAndGoesNoFurther) {
  PageManager::SetPageFactory(nullptr);
  EXPECT_EQ(Raised([&] { manager_.AddNewPage(); }), 429) << "a caller gets the error";
  platform_.prompts.Answers = {1};
  doc_->tabControl->PressTab(TabOf(u"AddNewTab"), 1, 0, 0, 0);
  ASSERT_EQ(platform_.prompts.Shown.size(), 1U);
  EXPECT_EQ(platform_.prompts.Shown[0].text,
            u"Error:429\r\nDescription:Cannot create a result page\r\nSource:VBQuorvane");

  PageManager::SetPageFactory([this] { return std::make_shared<test::RecordedPage>(log_); });
  manager_.AddNewPage();
  platform_.prompts.Answers = {1};
  doc_->tabControl->Remove(u"Search3");  // the page stays without its tab
  EXPECT_EQ(Raised([&] { manager_.mcolPages->Item(u"Search1"); }), 5);
  EXPECT_EQ(Raised([&] { manager_.mcolPages->Item(2); }), 9);
  EXPECT_EQ(platform_.prompts.Shown.size(), 2U) << "the selection that follows finds no page";
}

TEST_F(PageManagerTest, WithoutATabBarAMemberRaises) {
  PageManager alone;
  EXPECT_EQ(alone.ActivePage(), nullptr);
  EXPECT_EQ(Raised([&] { alone.BarEnabled(); }), 91);
  EXPECT_EQ(Raised([&] { alone.AddNewPage(); }), 91);
  EXPECT_EQ(alone.mcolPages->Count(), 0);
  Globals::gobjResultDoc.reset();
  EXPECT_EQ(Raised([&] { alone.Setup(); }), 91);
}

}  // namespace
}  // namespace quorvane

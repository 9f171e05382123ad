#include <gtest/gtest.h>

#include "ResultWindowFixture.h"

namespace quorvane::test {

namespace {

/// Shows the matches of odd lines alone.
const std::u16string kOddLines =
    Stylesheet(u"<xsl:if test='@Y1 mod 2 = 1'><xsl:value-of select='@Y1'/>:<xsl:value-of select='@ID'/></xsl:if>");
const std::u16string kNotWellFormed = u"<xsl:stylesheet";
/// Well-formed, and fails as soon as it runs.
const std::u16string kCannotRun = Stylesheet(u"<xsl:message terminate='yes'>no</xsl:message>");
const std::u16string kUnknownFunction = Stylesheet(u"<xsl:value-of select='nonsense()'/>");

}  // namespace

class FilterManagerTest : public SearchFixture {
 protected:
  FilterManagerTest() {
    refreshed_ = page->filter.OnRefresh.Subscribe([this] { ++refreshes; });
  }

  void FindX(std::u16string_view code) {
    OpenModule(CrLf(code));
    Condition(gsAllProjects, gsCommon, u"x");
    EXPECT_EQ(Search(), "");
  }

  std::string List() { return Join(page->list); }
  std::string Ids() {
    std::string ids;
    for (std::int32_t id = 1; id <= page->results->Count(); ++id)
      ids += std::to_string(page->filter.Item(id).Number(MatchField::ID)) + " ";
    EXPECT_EQ(Raised([&] { page->filter.Item(page->results->Count() + 1); }), 9);
    return ids;
  }
  std::string Refresh() {
    try {
      page->filter.Refresh(*page);
    } catch (const Error& error) {
      EXPECT_NE(error.Description, u"");
      return "error";
    }
    return List();
  }

  int refreshes = 0;

 private:
  Subscription refreshed_;
};

TEST_F(FilterManagerTest, ANewDocumentIsAnEmptyElement) {
  const TempFolder folder;
  page->filter.Save(FromUtf8(folder / "new.xml"));
  const std::string xml = folder.Read("new.xml");
  EXPECT_NE(xml.find("<SearchResult/>"), xml.npos) << xml;
  EXPECT_EQ(xml.find("encoding"), xml.npos) << xml;
  EXPECT_THROW(page->filter.Item(1), Error);
  EXPECT_THROW(page->filter.Item(0), Error);
  EXPECT_THROW(page->filter.Save(FromUtf8(folder / "no/such/folder.xml")), Error);
}

TEST(FilterManagerWide, AllAttributesInTheirOrder) {
  SearchWorld world("932");
  world.Open(Group{}.Project(u"Lager").Class(
      u"Ware", CrLf(u"Option Explicit\nProperty Get 名()\n  名 = \"<a & 'b'>\"\nEnd Property")));
  world.Condition(gsAllProjects, gsRegular, u"\"<a.*\\r\\nEnd");
  world.Setting().mintRelativeLineCount = 1;
  ASSERT_EQ(world.Search(), "");
  const TempFolder folder;
  world.page->filter.Save(FromUtf8(folder / "result.xml"));
  const std::string xml = folder.Read("result.xml");
  const std::size_t item = xml.find("<MatchItem");
  ASSERT_NE(item, xml.npos);
  EXPECT_EQ(xml.substr(item, xml.find("/>", item) + 2 - item),
            "<MatchItem ID=\"1\" Y1=\"3\" Y2=\"4\" X1=\"7\" X2=\"4\" ScreenX1=\"8\" ScreenX2=\"4\" StartPos=\"7\" "
            "EndPos=\"23\" MatchStr=\"&quot;&lt;a &amp; 'b'&gt;&quot;&#13;&#10;End\" ComponentName=\"Ware\" "
            "ProjectName=\"Lager\" RelativeStartPos=\"25\" RelativeEndPos=\"41\" ProcName=\"名\" ProcType=\"Get\" "
            "Line=\"  名 = &quot;&lt;a &amp; 'b'&gt;&quot;\"/>");
  EXPECT_EQ(world.page->filter.Item(1).Text(MatchField::MatchStr), u"\"<a & 'b'>\"\r\nEnd");
  EXPECT_EQ(Join(world.page->list), "1: Lager\\Ware\\Get\\名[3,7]  名 = \"<a & 'b'>\"")
      << "unescaped, and appended at once";
}

TEST_F(FilterManagerTest, ASearchWithAStylesheetThatFailsKeepsTheMatches) {
  for (const std::u16string& xsl : {kNotWellFormed, kCannotRun, kUnknownFunction, std::u16string()}) {
    Setting().SetXSL(xsl);
    FindX(u"x\nx");
    EXPECT_EQ(List(), "") << ToUtf8(xsl);
    EXPECT_EQ(Ids(), "1 2 ");
    EXPECT_EQ(page->results->Count(), 2);
    Setting().SetXSL(kOddLines);
    EXPECT_EQ(Refresh(), "1: 1:1") << "after " << ToUtf8(xsl);
  }
  EXPECT_TRUE(platform.prompts.Shown.empty());
}

TEST_F(FilterManagerTest, ADifferentStylesheetAsksForARefresh) {
  FindX(u"x\nx");
  const std::string before = List();
  EXPECT_EQ(before, "1: P\\M\\Proc\\(Declarations)[1,1]x\n2: P\\M\\Proc\\(Declarations)[2,1]x");
  Setting().SetXSL(GlobalSetting::DefaultXSL());
  EXPECT_EQ(refreshes, 0) << "the same text";
  Setting().SetXSL(kOddLines);
  EXPECT_EQ(refreshes, 1);
  EXPECT_EQ(Refresh(), "1: 1:1");
  Setting().SetXSL(kNotWellFormed);
  EXPECT_EQ(refreshes, 2);
  EXPECT_EQ(Refresh(), "");
  for (const std::u16string& xsl : {kCannotRun, kUnknownFunction}) {
    Setting().SetXSL(xsl);
    EXPECT_EQ(Refresh(), "error") << ToUtf8(xsl);
    EXPECT_EQ(List(), "");
  }
  Setting().SetXSL(GlobalSetting::DefaultXSL());
  EXPECT_EQ(Refresh(), before) << "the document was not touched";
  EXPECT_TRUE(platform.prompts.Shown.empty());
  Setting().PropertyChange.Raise(u"Other");
  EXPECT_EQ(refreshes, 5);
}

TEST_F(FilterManagerTest, TheListComesAnewWithTheStylesheetOfTheMoment) {
  platform.loop.Post([this] { Setting().SetXSL(kOddLines); });
  FindX(u"x\nx\nx");
  EXPECT_EQ(List(), "1: P\\M\\Proc\\(Declarations)[1,1]x\n3: 3:3") << "changed while the search ran";
}

TEST_F(FilterManagerTest, ARefreshThatFailsStopsWhereItIs) {
  FindX(u"x\nx\nx");
  Setting().SetXSL(Stylesheet(
      u"<xsl:if test='@Y1 = 2'><xsl:message terminate='yes'>no</xsl:message></xsl:if><xsl:value-of select='@Y1'/>"));
  EXPECT_EQ(Refresh(), "error");
  EXPECT_EQ(List(), "1: 1");
}

TEST_F(FilterManagerTest, AStylesheetReachesItsNeighbours) {
  Setting().SetXSL(Stylesheet(
      u"<xsl:value-of select='count(preceding-sibling::MatchItem)'/>/<xsl:value-of select='count(/SearchResult/*)'/>"));
  FindX(u"x\nx\nx");
  EXPECT_EQ(List(), "1: 0/1\n2: 1/2\n3: 2/3");
  EXPECT_EQ(Refresh(), "1: 0/3\n2: 1/3\n3: 2/3");
}

TEST_F(FilterManagerTest, ANewSearchEmptiesDocumentAndList) {
  FindX(u"x\nx");
  FindX(u"x");
  EXPECT_EQ(Ids(), "1 ");
  EXPECT_EQ(page->list.size(), 1u);
  int cleared = 0;
  const auto clear = page->filter.OnClear.Subscribe([&] { ++cleared; });
  page->results->Clear();
  EXPECT_EQ(cleared, 1);
  EXPECT_THROW(page->filter.Item(1), Error);
}

TEST_F(FilterManagerTest, AnErrorInOnClearIsShown) {
  const auto clear = page->filter.OnClear.Subscribe([] { RaiseError(ErrorNumber::TypeMismatch); });
  platform.prompts.Answers.push_back(1);
  page->results->Clear();
  ASSERT_EQ(platform.prompts.Shown.size(), 1u);
  EXPECT_EQ(platform.prompts.Shown[0].text, u"Error:13\r\nDescription:Type mismatch\r\nSource:VBQuorvane");
}

TEST_F(FilterManagerTest, AfterTearDownItListensNoMore) {
  FindX(u"x");
  page->filter.TearDown();
  EXPECT_EQ(page->filter.mobjParent, nullptr);
  EXPECT_EQ(Search(), "");
  EXPECT_EQ(Ids(), "1 ");
  EXPECT_EQ(page->list.size(), 1u);
}

}  // namespace quorvane::test

#include <gtest/gtest.h>

#include "addin/core/Globals.h"
#include "addin/core/Utilities.h"
#include "support/FakeWindows.h"
#include "support/Raised.h"
#include "support/TestPlatform.h"
#include "vbide/VBIDE.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/GroupBuilder.h"

namespace quorvane {
namespace {

using test::Raised;
using workbench::Group;

class WindowUtilitiesTest : public testing::Test {
 protected:
  WindowUtilitiesTest() { platform_.windows = &windows_; }

  const Utilities& U() { return *Globals::gobjUtilities; }

  test::TestPlatform platform_;
  test::FakeWindows windows_;
};

TEST_F(WindowUtilitiesTest, PassesItsCallsOnToTheWindowSystem) {
  U().ShowWindowAsync(7, 9);
  U().SetZOrder(7, -1);
  U().SetWindowVisible(7, 0);
  U().SetWindowVisible(7, -1);
  U().SetWindowVisible(7, 1);
  U().SetParent(7, 8);
  windows_.Answer = 65536 + 3;
  EXPECT_EQ(U().GetListIndex(7, 2.5, 3.5), 65539);
  U().GetListIndex(7, -1.0, 0.4);
  EXPECT_EQ(windows_.Calls,
            (std::vector<std::string>{"ShowWindowAsync 7 9", "SetWindowPos 7 -1 0 0 0 0 19", "ShowWindow 7 0",
                                      "ShowWindow 7 4", "ShowWindow 7 4", "SetParent 7 8", "SendMessage 7 425 0 262146",
                                      "SendMessage 7 425 0 -1"}));
  EXPECT_EQ(Raised([&] { U().GetListIndex(7, 0, 32768); }), 6);
  EXPECT_EQ(Raised([&] { U().GetListIndex(7, 1e300, 0); }), 6);
}

TEST_F(WindowUtilitiesTest, ParentsOfAWindow) {
  windows_.Windows = {{1, {u"Main", u"Title", 0, {}}},
                      {2, {u"List", u"", 1, {10, 20, 30, 40}}},
                      {3, {u"List", u"", 2, {}}},
                      {4, {u"Main", u"Other", 0, {}}}};
  EXPECT_EQ(U().GetTopWindow(1), 2);
  EXPECT_TRUE(U().IsParentWindow(1, 3));
  EXPECT_TRUE(U().IsParentWindow(3, 3));
  EXPECT_FALSE(U().IsParentWindow(3, 1));
  EXPECT_FALSE(U().IsParentWindow(4, 3));
  EXPECT_FALSE(U().IsParentWindow(0, 3));
}

TEST_F(WindowUtilitiesTest, TheEdgesOfAWindowAreOutside) {
  windows_.Windows[2] = {u"", u"", 0, {10, 20, 30, 40}};
  const struct {
    std::int32_t x, y;
    bool inside;
  } rows[] = {{11, 21, true}, {29, 39, true}, {10, 30, false}, {30, 30, false}, {20, 20, false}, {20, 40, false}};
  for (const auto& row : rows) EXPECT_EQ(U().IsPointInWindow(2, row.x, row.y), row.inside) << row.x << ',' << row.y;
  EXPECT_FALSE(U().IsPointInWindow(99, 0, 0));
}

TEST_F(WindowUtilitiesTest, ATitleIsCutAtTheBytesOfItsBuffer) {
  const std::pair<std::u16string, std::u16string> rows[] = {{u"Project1 - Form1 (Code)", u"Project1 - Form1 (Code)"},
                                                            {std::u16string(300, u'a'), std::u16string(254, u'a')},
                                                            {u"x\u6587y", u"x?y"},
                                                            {std::u16string(u"ab\0\0", 4), u"ab"},
                                                            {u"", u""}};
  for (const auto& [title, text] : rows) {
    windows_.Windows[1] = {u"", title, 0, {}};
    EXPECT_EQ(ToUtf8(U().GetWindowText(1)), ToUtf8(text));
  }
}

TEST(UtilitiesWideTest, AWideCharacterTakesTwoBytesOfATitle) {
  test::TestPlatform platform("936");
  test::FakeWindows windows;
  platform.windows = &windows;
  windows.Windows[1] = {u"", u"x" + std::u16string(200, u'\u6587'), 0, {}};
  EXPECT_EQ(Globals::gobjUtilities->GetWindowText(1).size(), 1U + 126U);
}

TEST_F(WindowUtilitiesTest, FindsTheWindowsOfTheHostAndBringsCodeForward) {
  const auto host = Group{}.Project(u"P").Module(u"A", u"x").Module(u"B", u"y").Build(platform_.AnsiCodePage());
  EXPECT_EQ(Raised([&] { U().GetMDIClientWindowHandle(); }), 91) << "no host yet";
  Globals::gobjVBE = std::shared_ptr<vbide::VBE>(host.get(), [](vbide::VBE*) {});
  windows_.Windows = {{1, {u"wndclass_desked_gsk", u"Elsewhere", 0, {}}},
                      {2, {u"wndclass_desked_gsk", host->MainWindow()->Caption(), 0, {}}},
                      {3, {u"MDIClient", u"", 2, {}}}};
  const auto components = host->VBProjects().front()->VBComponents()->Items();
  const auto window = components[1]->CodeModule()->CodePane()->Window();
  windows_.Windows[4] = {u"VbaWindow", components[0]->CodeModule()->CodePane()->Window()->Caption(), 3, {}};
  windows_.Windows[5] = {u"VbaWindow", window->Caption(), 3, {}};
  windows_.Windows[6] = {u"VbaWindow", window->Caption(), 3, {}};
  EXPECT_EQ(U().VBHandle(*host), 2);
  EXPECT_EQ(U().GetMDIClientWindowHandle(), 3);
  EXPECT_EQ(U().GetCodeWindowHandle(*window), 5);
  U().ActivateCodeWindow(*window);
  windows_.Windows.erase(2);
  EXPECT_EQ(U().VBHandle(*host), 0);
  U().ActivateCodeWindow(*window);
  EXPECT_EQ(windows_.Calls, (std::vector<std::string>{"SendMessage 5 4163 0 0", "SendMessage 0 4163 0 0"}));
  platform_.windows = nullptr;
  EXPECT_EQ(U().VBHandle(*host), 0) << "0 when anything fails";
}

}  // namespace
}  // namespace quorvane

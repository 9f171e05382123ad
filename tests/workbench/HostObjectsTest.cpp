#include <gtest/gtest.h>

#include "native/codepages/CodePages.h"
#include "support/Raised.h"
#include "support/Rows.h"
#include "support/Seen.h"
#include "workbench/model/CommandButton.h"
#include "workbench/model/Component.h"
#include "workbench/model/HostAddins.h"
#include "workbench/model/HostCommandBars.h"
#include "workbench/model/HostWindow.h"
#include "workbench/model/HostWindows.h"
#include "workbench/model/Module.h"
#include "workbench/model/Pane.h"
#include "workbench/model/WindowTable.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/GroupBuilder.h"

namespace quorvane::workbench {
namespace {

using test::Raised;
using vbide::ComponentType;
using vbide::Selection;

class HostObjectsTest : public testing::Test {
 protected:
  static std::shared_ptr<vbide::CodePane> PaneOf(const vbide::VBE& host, std::size_t project, std::size_t component) {
    return host.VBProjects()[project]->VBComponents()->Items()[component]->CodeModule()->CodePane();
  }

  std::unique_ptr<CodePage> page = native::NewCodePage("932");
};

TEST_F(HostObjectsTest, ABuiltGroupReadsLikeAnOpenedOne) {
  const auto built = Group{}
                         .Project(u"P")
                         .Module(u"M", u"one\r\ntwo")
                         .Class(u"C", u"")
                         .Form(u"F", u"\r\n")
                         .Component(u"T", ComponentType::VBMDIForm, u"x")
                         .Resource(u"R.res")
                         .Project(u"Q")
                         .Active()
                         .File(u"Raw", ComponentType::StdModule, "a\nAttribute a.VB_Description = \"d\"\nb\n")
                         .Build(*page);
  const auto host = test::Seen(*built);
  std::u16string seen;
  for (const auto& project : host->VBProjects()) {
    for (const auto& component : project->VBComponents()->Items()) {
      EXPECT_EQ(component->Collection()->Parent(), project);
      const auto module = component->CodeModule();
      seen += project->Name() + u"." + component->Name() + u":" + (module ? module->Lines(1, 99) : u"-") + u"|";
      if (!module) continue;
      EXPECT_EQ(module->Parent(), component);
      EXPECT_EQ(module->CodePane()->CodeModule(), module);
      EXPECT_EQ(module->CodePane(), module->CodePane());
    }
  }
  EXPECT_EQ(seen, u"P.M:one\r\ntwo|P.C:|P.F:|P.T:x|P.R.res:-|Q.Raw:a\r\nb|");
  EXPECT_EQ(host->ActiveVBProject()->Name(), u"Q");
  EXPECT_EQ(host->ActiveCodePane(), nullptr);
  EXPECT_EQ(Group{}.Build(*page)->ActiveVBProject(), nullptr);
  EXPECT_EQ(Raised([&] { (void)Group{}.Module(u"M", u"\u0E01").Build(*page); }), 5);
}

TEST_F(HostObjectsTest, SelectionIsClippedToTheText) {
  const auto built = Group{}.Module(u"M", u"ab\r\n\u8868c\r\n").Module(u"Empty", u"").Build(*page);
  const auto host = test::Seen(*built);
  const auto pane = PaneOf(*host, 0, 0);
  const auto module = pane->CodeModule();
  for (const test::Row& row : test::Rows("workbench/HostObjects.rows", "Selections")) {
    pane->SetSelection(row.Range(0));
    EXPECT_EQ(pane->GetSelection(), row.Range(1)) << row.Where();
  }
  pane->SetSelection({2, 3, 2, 4});
  module->DeleteLines(1, 2);
  EXPECT_EQ(pane->GetSelection(), (Selection{1, 1, 1, 1}));
  const auto empty = PaneOf(*host, 0, 1);
  empty->SetSelection({3, 3, 4, 4});
  EXPECT_EQ(empty->GetSelection(), (Selection{1, 1, 1, 1}));
}

TEST_F(HostObjectsTest, TheFrontmostVisiblePaneIsActive) {
  const auto built =
      Group{}.Project(u"P").Module(u"A", u"").Module(u"B", u"").Project(u"Q").Module(u"C", u"").Build(*page);
  const auto host = test::Seen(*built);
  const auto a = PaneOf(*host, 0, 0);
  const auto c = PaneOf(*host, 1, 0);
  int raised = 0;
  const Subscription counting = built->ActivePaneChanged.Subscribe([&] { ++raised; });
  a->Show();
  a->Show();
  EXPECT_EQ(raised, 1);
  c->Show();
  EXPECT_EQ(raised, 2);
  EXPECT_EQ(host->ActiveCodePane(), c);
  EXPECT_EQ(host->ActiveVBProject()->Name(), u"Q");
  EXPECT_EQ(c->Window()->Caption(), u"Q - C (Code)");
  c->Window()->Close();
  EXPECT_EQ(host->ActiveCodePane(), a);
  EXPECT_EQ(host->ActiveVBProject()->Name(), u"P");
  a->Window()->SetVisible(false);
  EXPECT_EQ(host->ActiveCodePane(), nullptr);
  c->Show();
  EXPECT_TRUE(c->Window()->Visible());
  EXPECT_EQ(raised, 5);
  EXPECT_EQ(Raised([&] { built->SetActivePane(nullptr); }), 91);
}

TEST_F(HostObjectsTest, WhatIsHeldOutlivesItsProjectAndTheWorkbench) {
  auto host = Group{}.Project(u"P").Module(u"A", u"a").Module(u"B", u"b").Project(u"Q").Module(u"C", u"c").Build(*page);
  const auto project = host->Projects()[0];
  const auto component = project->Components()[0];
  const auto pane = PaneOf(*host, 0, 0);
  const auto late = project->Components()[1]->CodeModule();
  const auto other = host->Projects()[1]->Components()[0]->CodeModule();
  pane->Show();
  host->Close(project);
  EXPECT_EQ(component->Collection(), nullptr);
  EXPECT_EQ(component->CodeModule()->Parent(), nullptr);
  EXPECT_EQ(project->VBComponents()->Parent(), nullptr);
  EXPECT_EQ(component->CodeModule()->Lines(1, 1), u"a");
  EXPECT_EQ(host->ActiveCodePane(), nullptr);
  EXPECT_EQ(host->ActiveVBProject()->Name(), u"Q");
  pane->Show();
  late->CodePane()->Show();
  EXPECT_EQ(host->ActiveCodePane(), nullptr);
  EXPECT_EQ(Raised([&] { host->SetActiveProject(project); }), 5);
  const auto openPane = other->CodePane();
  host.reset();
  other->InsertLines(1, u"edited");
  openPane->Show();
  EXPECT_EQ(other->Lines(1, 9), u"edited\r\nc");
  EXPECT_EQ(other->Parent(), nullptr);
}

TEST_F(HostObjectsTest, WindowsAreFoundByClassAndTitle) {
  const auto host =
      Group{}.Project(u"P").Module(u"M", u"").Module(u"N", u"").Project(u"P").Module(u"M", u"").Build(*page);
  const auto first = PaneOf(*host, 0, 0);
  const auto second = PaneOf(*host, 1, 0);
  WindowTable table(*host);
  const WindowHandle main = table.FindWindow(u"wndclass_desked_gsk", host->MainWindow()->Caption());
  const WindowHandle client = table.FindWindowEx(main, u"MDIClient", u"");
  ASSERT_NE(main, 0);
  ASSERT_NE(client, 0);
  EXPECT_EQ(table.FindWindow(u"wndclass_desked_gsk", u"Other"), 0);
  EXPECT_EQ(table.FindWindowEx(main, u"MDIClient", u"title"), 0);
  EXPECT_EQ(table.FindWindowEx(main, u"VbaWindow", u"P - M (Code)"), 0);
  EXPECT_EQ(table.FindWindowEx(client, u"VbaWindow", u"P - N (Code)"), 0);  // no pane was made
  const WindowHandle window = table.FindWindowEx(client, u"VbaWindow", u"P - M (Code)");
  table.SendMessage(window, 0x1042, 0, 0);
  EXPECT_EQ(host->ActiveCodePane(), nullptr);
  table.SendMessage(window, 0x1043, 0, 0);
  EXPECT_EQ(host->ActiveCodePane(), first);
  second->Show();  // of two windows with one title the one in front is found
  EXPECT_NE(table.FindWindowEx(client, u"VbaWindow", u"P - M (Code)"), window);
  table.SendMessage(0, 0x1043, 0, 0);
  EXPECT_EQ(host->ActiveCodePane(), second);
}

TEST_F(HostObjectsTest, ButtonsOfTheCommandBars) {
  const auto host = Group{}.Build(*page);
  const auto bar = host->CommandBars()->Item(u"add-ins");
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(host->CommandBars()->Item(u"Tools"), nullptr);
  EXPECT_EQ(Group{}.NoAddInsBar().Build(*page)->CommandBars()->Item(u"Add-Ins"), nullptr);
  EXPECT_EQ(Raised([&] { bar->AddControl(2); }), 5);
  const auto control = bar->AddControl(1);
  const auto button = std::dynamic_pointer_cast<CommandButton>(control);
  const auto source = host->Events()->CommandBarEvents(control);
  EXPECT_EQ(source, host->Events()->CommandBarEvents(control));
  EXPECT_EQ(Raised([&] { host->Events()->CommandBarEvents(nullptr); }), 91);
  int clicks = 0;
  const Subscription clicked = source->Click.Subscribe([&](const auto& which, bool&, bool&) {
    EXPECT_EQ(which, control);
    ++clicks;
  });
  button->Click();
  button->SetEnabled(false);
  button->Click();
  button->SetEnabled(true);
  control->SetVisible(false);
  button->Click();
  control->SetVisible(true);
  control->Delete();
  control->Delete();
  button->Click();
  EXPECT_EQ(clicks, 1);
  EXPECT_TRUE(host->TheCommandBars()->Bars()[0]->Buttons().empty());
}

TEST_F(HostObjectsTest, ToolWindowsAreMadeByProgId) {
  struct Hosted final : vbide::Document {};
  const auto host = Group{}.Build(*page);
  host->TheWindows()->RegisterDocumentFactory(u"P.Doc", [] { return std::make_shared<Hosted>(); });
  const auto addIn = host->TheAddins()->Register(u"P.Connect");
  EXPECT_EQ(host->Addins()->Item(u"p.connect"), addIn);
  EXPECT_EQ(Raised([&] { host->Addins()->Item(u"P.Other"); }), 9);
  std::shared_ptr<vbide::Document> document;
  const auto window = host->Windows()->CreateToolWindow(addIn, u"P.doc", u"Title", u"{1}", document);
  EXPECT_NE(std::dynamic_pointer_cast<Hosted>(document), nullptr);
  EXPECT_EQ(window->Caption(), u"Title");
  EXPECT_FALSE(window->Visible());
  EXPECT_EQ(host->TheWindows()->ToolWindows()[0]->TheDocument(), document);
  EXPECT_EQ(Raised([&] { window->SetWindowState(3); }), 5);
  const auto error = Raised([&] { host->Windows()->CreateToolWindow(addIn, u"P.Unknown", u"", u"", document); });
  EXPECT_TRUE(error == 429 && error.Says("P.Unknown")) << error;
}

}  // namespace
}  // namespace quorvane::workbench

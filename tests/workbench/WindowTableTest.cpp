#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "native/codepages/CodePages.h"
#include "platform/CodePage.h"
#include "support/Raised.h"
#include "workbench/model/HostAddins.h"
#include "workbench/model/HostWindow.h"
#include "workbench/model/HostWindows.h"
#include "workbench/model/WindowTable.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/GroupBuilder.h"

namespace quorvane::workbench {
namespace {

class WindowTableTest : public testing::Test {
 protected:
  std::shared_ptr<vbide::Window> Code(std::size_t component) {
    const auto pane = host_->VBProjects()[0]->VBComponents()->Items()[component]->CodeModule()->CodePane();
    pane->Show();
    return pane->Window();
  }
  static WindowHandle HandleOf(const std::shared_ptr<vbide::Window>& window) {
    return std::dynamic_pointer_cast<HostWindow>(window)->Handle();
  }

  std::unique_ptr<CodePage> page_ = native::NewCodePage("1252");
  std::unique_ptr<Workbench> host_ = Group{}.Module(u"A", u"x").Module(u"B", u"y").Build(*page_);
  WindowTable table_{*host_};
  WindowHandle main_ = HandleOf(host_->MainWindow());
  WindowHandle client_ = table_.FindWindowEx(main_, u"MDIClient", u"");
};

TEST_F(WindowTableTest, ATreeOfMainWindowClientAreaAndCode) {
  EXPECT_EQ(table_.GetTopWindow(client_), 0) << "no code window yet";
  const WindowHandle a = HandleOf(Code(0));
  const auto codeB = Code(1);
  const WindowHandle b = HandleOf(codeB);
  host_->TheWindows()->RegisterDocumentFactory(u"Doc", [] { return std::make_shared<vbide::Document>(); });
  std::shared_ptr<vbide::Document> document;
  const auto record = host_->TheAddins()->Register(u"AddIn");
  const auto window = host_->TheWindows()->CreateToolWindow(record, u"Doc", u"Tool", u"{}", document);
  const WindowHandle tool = HandleOf(window);

  std::vector<WindowHandle> parents, tops;
  for (const WindowHandle handle : {main_, client_, a, b, tool, WindowHandle{0}, WindowHandle{9999}}) {
    parents.push_back(table_.GetParent(handle));
    tops.push_back(table_.GetTopWindow(handle));
  }
  EXPECT_EQ(parents, (std::vector<WindowHandle>{0, main_, client_, client_, main_, 0, 0}));
  EXPECT_EQ(tops, (std::vector<WindowHandle>{client_, b, 0, 0, 0, main_, 0}));
  EXPECT_EQ(table_.GetWindowText(tool), u"Tool");
  EXPECT_EQ(table_.GetWindowText(b), codeB->Caption());
  EXPECT_EQ(table_.GetWindowText(client_), u"");

  table_.ShowWindow(tool, 4);
  EXPECT_TRUE(window->Visible());
  table_.ShowWindowAsync(tool, 0);
  EXPECT_FALSE(window->Visible());
  table_.ShowWindow(9999, 4);
}

TEST_F(WindowTableTest, TheTopOfTheOrderIsTheActivePane) {
  const WindowHandle a = HandleOf(Code(0));
  const WindowHandle b = HandleOf(Code(1));
  table_.SetWindowPos(a, 0, 0, 0, 0, 0, 4);  // the order is to stay
  table_.SetWindowPos(a, 1, 0, 0, 0, 0, 19);
  EXPECT_EQ(table_.GetTopWindow(client_), b);
  table_.SetWindowPos(a, 0, 0, 0, 0, 0, 19);
  EXPECT_EQ(table_.GetTopWindow(client_), a);
  EXPECT_EQ(HandleOf(host_->ActiveCodePane()->Window()), a);
}

TEST_F(WindowTableTest, TheMainWindowIsInFrontWhileVisibleAndPlacesAreNotKept) {
  EXPECT_EQ(table_.GetForegroundWindow(), main_);
  host_->MainWindow()->SetVisible(false);
  EXPECT_EQ(table_.GetForegroundWindow(), 0);
  EXPECT_EQ(test::Raised([&] { table_.GetWindowRect(main_); }), 445);
  EXPECT_EQ(test::Raised([&] { table_.GetCursorPos(); }), 445);
}

}  // namespace
}  // namespace quorvane::workbench

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "native/codepages/CodePages.h"
#include "support/Raised.h"
#include "windows/bridge/Session.h"
#include "windows/com/DispatchObject.h"
#include "windows/com/HostedDocument.h"
#include "windows/com/Win32.h"
#include "windows/container/Exporter.h"
#include "workbench/model/CommandButton.h"
#include "workbench/model/HostAddins.h"
#include "workbench/model/HostCommandBars.h"
#include "workbench/model/Module.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/GroupBuilder.h"

namespace quorvane::bridge {
namespace {

using container::Meanness;
using workbench::Group;

/// Each kind of host; the tests run against all of them.
const std::vector<Meanness> kHosts = {
    {},
    {.freshObjects = true},
    {.freshObjects = true, .typeInformation = false, .strictLines = true, .wrapsDocument = true, .refusesMenu = true},
    {.typeInformation = false, .strictLines = true},
    {.freshActive = true, .oneClassId = true, .otherPoints = true, .noBars = true},
    {.typeInformation = false, .otherPoints = true, .noAddIns = true},
    {.otherPoints = true},
};

/// A workbench on one side, the bridge to it on the other.
class BridgeTest : public testing::TestWithParam<Meanness> {
 protected:
  void Open(const Group& group) {
    workbench_ = group.Build(*page_);
    const std::shared_ptr<vbide::VBE> own(std::shared_ptr<void>(), workbench_.get());
    session_ = std::make_unique<Session>(exporter_->Export(own), epoch_, [](const com::ComPtr<IDispatch>& handed) {
      return com::DocumentBehind(handed.Get());
    });
    host_ = session_->Application();
  }
  std::shared_ptr<vbide::CodeModule> Module(std::size_t project, std::size_t component) {
    return host_->VBProjects().at(project)->VBComponents()->Items().at(component)->CodeModule();
  }

  std::unique_ptr<CodePage> page_ = native::NewCodePage("932");
  HostEpoch epoch_;
  std::shared_ptr<container::Exporter> exporter_ = std::make_shared<container::Exporter>(GetParam());
  std::unique_ptr<workbench::Workbench> workbench_;
  std::unique_ptr<Session> session_;
  std::shared_ptr<vbide::VBE> host_;
};

INSTANTIATE_TEST_SUITE_P(Hosts, BridgeTest, testing::ValuesIn(kHosts));

TEST_P(BridgeTest, OneWrapperForOneThing) {
  Open(Group{}.Project(u"P").Module(u"M", u"x").Module(u"N", u"y").Project(u"Q").Module(u"M", u"z").Resource(u"R"));
  std::vector<std::shared_ptr<vbide::CodeModule>> modules;
  for (int round = 0; round < 2; ++round) {
    for (const auto& project : host_->VBProjects()) {
      for (const auto& component : project->VBComponents()->Items()) {
        const auto code = component->CodeModule();
        EXPECT_EQ(component->Collection(), project->VBComponents());
        EXPECT_EQ(component->Collection()->Parent(), project);
        if (!code) continue;
        EXPECT_EQ(code->Parent(), component);
        EXPECT_EQ(code->CodePane()->CodeModule(), code);
        EXPECT_EQ(code->CodePane(), code->CodePane());
        modules.push_back(code);
      }
    }
  }
  modules[3]->CodePane()->Show();
  EXPECT_EQ(host_->ActiveCodePane(), modules[0]->CodePane());
  EXPECT_EQ(host_->ActiveCodePane()->CodeModule(), modules[0]);
  EXPECT_EQ(host_->ActiveVBProject(), host_->VBProjects()[0]);
  ASSERT_EQ(modules.size(), 6U);
  for (std::size_t i = 0; i < 6; ++i) {
    for (std::size_t j = 0; j < 6; ++j) EXPECT_EQ(modules[i] == modules[j], i % 3 == j % 3);
  }
  EXPECT_EQ(modules[0]->Lines(1, 1) + modules[1]->Lines(1, 1) + modules[2]->Lines(1, 1), u"xyz");
}

TEST_P(BridgeTest, NothingComesAsNothing) {
  Open(Group{}.NoAddInsBar());
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(host_->ActiveCodePane(), nullptr);
    EXPECT_EQ(host_->ActiveVBProject(), nullptr);
  }
  EXPECT_TRUE(host_->VBProjects().empty());
  EXPECT_EQ(host_->CommandBars()->Item(u"Add-Ins"), nullptr) << "and nothing is raised";
  EXPECT_EQ(test::Raised([&] { host_->Addins()->Item(u"No.Such"); }), 9);
}

/// What a call gave, or the error that it raised.
std::string Told(const std::function<std::u16string()>& call) {
  try {
    return ToUtf8(call());
  } catch (const Error& e) {
    return "error " + std::to_string(e.Number) + " " + e.what();
  }
}

/// The same calls, at random and often with arguments that make no sense, to a module and to its twin behind the
/// bridge.
TEST_P(BridgeTest, AnswersAreThoseOfTheHost) {
  const std::u16string text =
      u"Option Explicit\r\nPrivate a As Long ' 表a\r\n\r\nSub One()\r\n  a = a + 1\r\nEnd Sub\r\n' of two\r\n"
      u"Property Get Two() As Long\r\n  Two = a\r\nEnd Property\r\nProperty Let Two(ByVal a As Long)\r\nEnd Property";
  Open(Group{}.Project(u"P").Module(u"Twin", text).Module(u"Seen", text));
  const std::shared_ptr<vbide::CodeModule> twin = workbench_->Projects()[0]->Components()[0]->CodeModule();
  const std::shared_ptr<vbide::CodeModule> seen = Module(0, 1);
  std::mt19937 random(20);
  const auto number = [&](int most) {
    return static_cast<std::int32_t>(random() % static_cast<unsigned>(most + 3)) - 2;
  };
  const std::vector<std::u16string> words = {u"a", u"Two", u"One", u"", u"表", u"[a-z]*", u"[b-a]", u"x\r\ny", u"End"};
  for (int i = 0; i < 3000; ++i) {
    const std::int32_t line = number(16);
    const std::int32_t count = number(5);
    const auto kind = static_cast<vbide::ProcKind>(random() % 4);
    const std::u16string& word = words[random() % words.size()];
    const vbide::Selection range{number(14), number(12), number(16), number(40)};
    const unsigned flags = random() % 8;
    const unsigned what = random() % 9;
    const auto call = [&](vbide::CodeModule& code) -> std::u16string {
      vbide::ProcKind given = vbide::ProcKind::Get;
      vbide::Selection place = range;
      switch (what) {
        case 0:
          return code.Lines(line, count);
        case 1:
          return ToText(code.CountOfLines()) + u" " + ToText(code.CountOfDeclarationLines());
        case 2:
          return code.ProcOfLine(line, given) + ToText(static_cast<int>(given));
        case 3:
          return ToText(code.ProcStartLine(word, kind));
        case 4:
          return ToText(code.ProcCountLines(word, kind));
        case 5:
          if (code.CountOfLines() < 16) code.InsertLines(line, word);
          return code.Lines(1, 99);
        case 6:
          if (code.CountOfLines() > 8) code.DeleteLines(line, count);
          return code.Lines(1, 99);
        default:
          const bool found = code.Find(word, place, (flags & 1) != 0, (flags & 2) != 0, (flags & 4) != 0);
          return (found ? u"found " : u"none ") + ToText(place.StartLine) + u"," + ToText(place.StartColumn) + u"," +
                 ToText(place.EndLine) + u"," + ToText(place.EndColumn);
      }
    };
    ASSERT_EQ(Told([&] { return call(*seen); }), Told([&] { return call(*twin); })) << "step " << i << " kind " << what;
  }
}

TEST_P(BridgeTest, TheRevisionMovesWhenTheTextMayHave) {
  Open(Group{}.Project(u"P").Module(u"M", u"x").Module(u"N", u"y"));
  const auto m = Module(0, 0);
  const auto n = Module(0, 1);
  const std::uint64_t first = m->Revision();
  EXPECT_NE(first, 0U);
  EXPECT_NE(n->Revision(), first);
  for (const UINT quiet : {WM_PAINT, WM_TIMER, WM_MOUSEMOVE, WM_NCPAINT}) epoch_.Follow(quiet);
  EXPECT_EQ(m->Revision(), first);
  std::vector<std::uint64_t> seen = {first};
  for (const UINT busy : {WM_KEYDOWN, WM_CHAR, WM_LBUTTONUP, WM_COMMAND, WM_IME_COMPOSITION, WM_USER, WM_DROPFILES}) {
    epoch_.Follow(busy);
    seen.push_back(m->Revision());
    EXPECT_GT(seen.back(), seen[seen.size() - 2]);
  }
  m->InsertLines(1, u"z");
  EXPECT_GT(m->Revision(), seen.back());
  EXPECT_EQ(test::Raised([&] { m->DeleteLines(9, 9); }), 9);
}

TEST_P(BridgeTest, ClicksComeUntilTheEnd) {
  Open(Group{});
  if (GetParam().refusesMenu || GetParam().noBars) {
    EXPECT_EQ(host_->CommandBars()->Item(u"Add-Ins"), nullptr);
    return;
  }
  const auto control = host_->CommandBars()->Item(u"Add-Ins")->AddControl(1);
  EXPECT_EQ(test::Raised([&] { host_->CommandBars()->Item(u"Add-Ins")->AddControl(2); }), 5);
  const std::shared_ptr<workbench::CommandButton> button = workbench_->TheCommandBars()->Bars()[0]->Buttons().at(0);
  control->SetCaption(u"搜索");
  EXPECT_EQ(button->Caption(), u"搜索");
  button->SetEnabled(false);
  EXPECT_FALSE(control->Enabled());
  button->SetEnabled(true);
  int clicks = 0;
  auto source = host_->Events()->CommandBarEvents(control);
  auto clicked = source->Click.Subscribe([&](const auto& which, bool& handled, bool& cancelDefault) {
    EXPECT_EQ(which, control);
    EXPECT_FALSE(handled || cancelDefault);
    handled = cancelDefault = true;
    ++clicks;
  });
  bool passed = false;
  const auto behind = button->Clicks()->Click.Subscribe([&](const auto&, bool& handled, bool&) { passed = handled; });
  button->Click();
  EXPECT_EQ(clicks, 1);
  EXPECT_TRUE(passed);
  auto another = host_->Events()->CommandBarEvents(control);
  another.reset();
  button->Click();
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(test::Raised([&] { host_->Events()->CommandBarEvents(nullptr); }), 91);
  session_->End();
  button->Click();
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(exporter_->Living.Text(), "");
  EXPECT_EQ(test::Raised([&] { control->Delete(); }), 91);
}

TEST_P(BridgeTest, NothingOfTheHostIsLeftBehindTheEnd) {
  Open(Group{}.Project(u"P").Module(u"M", u"x"));
  const auto code = Module(0, 0);
  const auto pane = code->CodePane();
  const auto window = pane->Window();
  pane->Show();
  EXPECT_EQ(host_->ActiveCodePane(), pane);
  EXPECT_EQ(window->Caption(), u"P - M (Code)");
  const auto again = std::make_unique<Session>(
      exporter_->Export(std::shared_ptr<vbide::VBE>(std::shared_ptr<void>(), workbench_.get())), epoch_, nullptr);
  session_->End();
  EXPECT_EQ(test::Raised([&] { code->Lines(1, 1); }), 91);
  EXPECT_EQ(test::Raised([&] { pane->GetSelection(); }), 91);
  EXPECT_EQ(test::Raised([&] { host_->MainWindow(); }), 91);
  EXPECT_EQ(again->Application()->ActiveCodePane()->CodeModule()->Lines(1, 1), u"x");
  EXPECT_NE(exporter_->Living.Text(), "");
  again->End();
  EXPECT_EQ(exporter_->Living.Text(), "");
}

struct Hosted final : vbide::Document {};

/// The object of the tool window's document, as the host makes it.
class HostedObject final : public com::DispatchObject<HostedObject, IDispatch, IHostedDocument> {
 public:
  static const std::vector<com::DispatchMember<HostedObject>>& Members() {
    static const std::vector<com::DispatchMember<HostedObject>> none;
    return none;
  }
  HRESULT STDMETHODCALLTYPE GetDocument(const void*, std::shared_ptr<vbide::Document>* document) override {
    *document = document_;
    return S_OK;
  }
  std::shared_ptr<vbide::Document> document_ = std::make_shared<Hosted>();
};

TEST_P(BridgeTest, TheDocumentIsFoundBehindWhatTheHostHandsOut) {
  Open(Group{});
  const auto addIn = workbench_->TheAddins()->Register(u"P.Connect");
  const auto object = com::MakeObject<HostedObject>();
  com::NoteDocument(object->document_);
  std::u16string told;
  exporter_->MakeToolWindow = [&](const auto& given, const std::u16string& progId, const std::u16string& caption,
                                  const std::u16string& place, com::ComPtr<IUnknown>& document) {
    told = given->ProgId() + u"|" + progId + u"|" + caption + u"|" + place;
    document = com::ComPtr<IUnknown>(static_cast<IDispatch*>(object.Get()));
    return workbench_->MainWindow();
  };
  std::shared_ptr<vbide::Document> document;
  const auto own = session_->AddIn(exporter_->Export(std::shared_ptr<vbide::AddIn>(addIn)));
  EXPECT_EQ(test::Raised([&] { host_->Addins()->Item(u"P.Other"); }), 9);
  const auto known = host_->Addins()->Item(u"p.connect");
  const auto window = host_->Windows()->CreateToolWindow(known, u"P.Doc", u"标题", u"{1}", document);
  EXPECT_EQ(told, u"P.Connect|P.Doc|标题|{1}");
  EXPECT_EQ(document, object->document_);
  window->SetVisible(false);
  EXPECT_FALSE(workbench_->MainWindow()->Visible());
  EXPECT_EQ(test::Raised([&] { window->SetWindowState(7); }), 5);
  EXPECT_EQ(test::Raised([&] { host_->Windows()->CreateToolWindow(nullptr, u"", u"", u"", document); }), 91);
  exporter_->MakeToolWindow = nullptr;
  EXPECT_EQ(test::Raised([&] { host_->Windows()->CreateToolWindow(known, u"", u"", u"", document); }), 445);
}

}  // namespace
}  // namespace quorvane::bridge

#include <gtest/gtest.h>

#include <memory>

#include "base/Text.h"
#include "native/codepages/CodePages.h"
#include "support/Raised.h"
#include "workbench/model/AddInLoader.h"
#include "workbench/model/HostWindows.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/GroupBuilder.h"

namespace quorvane::workbench {
namespace {

using test::Raised;
using vbide::ConnectMode;
using vbide::DisconnectMode;

struct Hosted final : vbide::Document {};

/// Add-ins that write down what happens to them and make a tool window each.
class AddInLoaderTest : public testing::Test {
 protected:
  AddInLoaderTest() {
    for (const char16_t* name : {u"A.Connect", u"B.Connect", u"C.Connect"}) {
      loader->Register(name, [this, name] { return std::make_shared<Recorded>(*this, ToUtf8(name).substr(0, 1)); });
    }
    host->TheWindows()->RegisterDocumentFactory(u"Doc", [] { return std::make_shared<Hosted>(); });
    removed_ = host->TheWindows()->Removed.Subscribe(
        [this](const auto& window) { log += "-" + ToUtf8(window->Caption()) + (window->Visible() ? "! " : " "); });
  }

  class Recorded final : public vbide::AddInInstance {
   public:
    Recorded(AddInLoaderTest& test, std::string name) : test_(test), name_(std::move(name)) {}
    ~Recorded() override { test_.log += "~" + name_ + " "; }

    void OnConnection(const std::shared_ptr<vbide::VBE>& application, ConnectMode mode,
                      const std::shared_ptr<vbide::AddIn>& addIn) override {
      test_.log += "on" + name_ + std::to_string(static_cast<int>(mode)) + " ";
      std::shared_ptr<vbide::Document> document;
      for (int i = 0; i < test_.windows; ++i) {
        test_.held = application->Windows()->CreateToolWindow(addIn, u"Doc", FromUtf8(name_), u"{}", document);
        test_.held->SetVisible(true);
      }
      if (test_.failing.find(name_ + "+") != std::string::npos) throw Error(1, u"connecting");
    }
    void OnDisconnection(DisconnectMode mode) override {
      test_.log += "off" + name_ + std::to_string(static_cast<int>(mode)) + " ";
      if (test_.failing.find(name_ + "-") != std::string::npos) throw Error(2, u"leaving");
    }

   private:
    AddInLoaderTest& test_;
    std::string name_;
  };

  void LoadAll() {
    for (const char16_t* name : {u"A.Connect", u"B.Connect", u"C.Connect"}) loader->Load(name, ConnectMode::Startup);
    log.clear();
  }
  /// The log since the last call.
  std::string Log() { return std::exchange(log, {}); }

  std::string log;
  std::string failing;  ///< "A+": its OnConnection raises; "A-": its OnDisconnection
  int windows = 1;      ///< that an add-in makes
  std::shared_ptr<vbide::Window> held;
  std::unique_ptr<CodePage> page = native::NewCodePage("1252");
  std::shared_ptr<Workbench> host = Group{}.Build(*page);
  std::unique_ptr<AddInLoader> loader = std::make_unique<AddInLoader>(host);

 private:
  Subscription removed_;
};

TEST_F(AddInLoaderTest, LoadsOnceAndLetsGoOnce) {
  loader->Load(u"a.CONNECT", ConnectMode::AfterStartup);
  loader->Load(u"A.Connect", ConnectMode::Startup);
  EXPECT_EQ(Log(), "onA0 ");
  EXPECT_TRUE(loader->Loaded(u"A.connect"));
  loader->Unload(u"A.connecT", DisconnectMode::UserClosed);
  loader->Unload(u"A.Connect", DisconnectMode::UserClosed);
  EXPECT_EQ(Log(), "offA1 -A ~A ");
  EXPECT_FALSE(loader->Loaded(u"A.Connect"));
}

TEST_F(AddInLoaderTest, WhatCannotBeMadeIsNamed) {
  const auto error = Raised([&] { loader->Load(u"No.Such", ConnectMode::Startup); });
  EXPECT_TRUE(error == 429 && error.Says("No.Such")) << error;
  loader->Register(u"Empty.Connect", [] { return nullptr; });
  EXPECT_EQ(Raised([&] { loader->Load(u"Empty.Connect", ConnectMode::Startup); }), 91);
  loader->Register(u"Bad.Connect", []() -> std::shared_ptr<vbide::AddInInstance> { throw Error(3, u"making"); });
  EXPECT_EQ(Raised([&] { loader->Load(u"Bad.Connect", ConnectMode::Startup); }), 3);
  loader->UnloadAll(DisconnectMode::HostShutdown);
  EXPECT_EQ(log, "");
}

TEST_F(AddInLoaderTest, AConnectionThatRaisesLeavesNothingBehind) {
  failing = "A+";
  windows = 2;
  EXPECT_EQ(Raised([&] { loader->Load(u"A.Connect", ConnectMode::Startup); }), 1);
  EXPECT_EQ(Log(), "onA1 -A -A ~A ");
  EXPECT_FALSE(loader->Loaded(u"A.Connect"));
  EXPECT_TRUE(host->TheWindows()->ToolWindows().empty());
  failing.clear();
  loader->Load(u"A.Connect", ConnectMode::Startup);
  EXPECT_EQ(Log(), "onA1 ");
  EXPECT_EQ(host->TheWindows()->ToolWindows().size(), 2U);
}

TEST_F(AddInLoaderTest, ADisconnectionThatRaisesKeepsNobodyFromGoing) {
  failing = "B-A-";
  LoadAll();
  EXPECT_EQ(Raised([&] { loader->Unload(u"B.Connect", DisconnectMode::UserClosed); }), 2);
  EXPECT_EQ(Log(), "offB1 -B ~B ");
  EXPECT_EQ(host->TheWindows()->ToolWindows().size(), 2U) << "those of the others stay";
  loader->Load(u"B.Connect", ConnectMode::Startup);
  log.clear();
  loader->UnloadAll(DisconnectMode::HostShutdown);
  EXPECT_EQ(Log(), "offB0 -B ~B offC0 -C ~C offA0 -A ~A ");
  EXPECT_TRUE(host->TheWindows()->ToolWindows().empty());

  LoadAll();
  loader.reset();
  EXPECT_EQ(Log(), "offC0 -C ~C offB0 -B ~B offA0 -A ~A ");
}

TEST_F(AddInLoaderTest, AHeldWindowOutlivesItsAddInUnseen) {
  loader->Load(u"A.Connect", ConnectMode::Startup);
  loader->Unload(u"A.Connect", DisconnectMode::UserClosed);
  held->SetCaption(u"late");
  held->SetVisible(true);
  EXPECT_TRUE(host->TheWindows()->ToolWindows().empty());
  loader->Load(u"A.Connect", ConnectMode::Startup);
  EXPECT_EQ(host->TheWindows()->ToolWindows().size(), 1U);
}

}  // namespace
}  // namespace quorvane::workbench

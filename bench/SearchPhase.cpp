// How the cost of the search grows, with neither process start nor files: one task over a group held in memory, with
// the result document and the result lines that every search makes. Matches/N searches N lines in modules of 500 lines,
// each line with one match; the others search or change a single module of N lines, each with one match.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "OneModule.h"
#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/Utilities.h"
#include "addin/results/FilterManager.h"
#include "addin/search/ConditionSnap.h"
#include "addin/search/IPage.h"
#include "addin/search/ResultCollection.h"
#include "addin/search/TaskManager.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/Text.h"
#include "native/codepages/CodePages.h"
#include "native/regexp/PcreRegExp.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/LibXmlTable.h"
#include "platform/App.h"
#include "platform/CodePage.h"
#include "platform/MessageLoop.h"
#include "platform/NativeWindows.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/GroupBuilder.h"

namespace quorvane::bench {
namespace {

class QuietLoop final : public MessageLoop {
 public:
  void DoEvents() override {}
};

class QuietPrompts final : public Prompts {
 public:
  int MsgBox(const std::u16string&, int, const std::u16string&) override { return 1; }
};

class NoWindows final : public NativeWindows {
 public:
  WindowHandle FindWindow(std::u16string_view, std::u16string_view) override { return 0; }
  WindowHandle FindWindowEx(WindowHandle, std::u16string_view, std::u16string_view) override { return 0; }
  std::int32_t SendMessage(WindowHandle, std::uint32_t, std::int32_t, std::int32_t) override { return 0; }
};

/// The real engines, and nobody in front of them.
class BenchPlatform final : public Platform {
 public:
  BenchPlatform() { InstallPlatform(this); }
  ~BenchPlatform() override { InstallPlatform(nullptr); }

  std::unique_ptr<RegExp> NewRegExp() override { return std::make_unique<native::PcreRegExp>(); }
  std::shared_ptr<XmlDocument> NewXmlDocument() override { return std::make_shared<native::LibXmlDocument>(); }
  std::unique_ptr<XmlTable> NewXmlTable(const XmlTableShape& shape) override {
    return std::make_unique<native::LibXmlTable>(shape);
  }
  const CodePage& AnsiCodePage() override { return *mobjCodePage; }
  MessageLoop& Loop() override { return mobjLoop; }
  Prompts& MessageBoxes() override { return mobjPrompts; }
  App& TheApp() override { return mobjApp; }
  NativeWindows& Windows() override { return mobjWindows; }

 private:
  std::unique_ptr<CodePage> mobjCodePage = native::NewCodePage("1252");
  QuietLoop mobjLoop;
  QuietPrompts mobjPrompts;
  App mobjApp;
  NoWindows mobjWindows;
};

/// A page that keeps its lines and shows them nowhere.
class ListPage final : public IPage {
 public:
  ListPage() {
    mcolResult->Setup(*this);
    mobjFilter.Setup(*this);
    onAdd_ =
        mobjFilter.OnAdd.Subscribe([this](const std::u16string& line, std::int32_t) { mvecLines.push_back(line); });
    mobjTask.Setup(*this);
  }
  ~ListPage() override {
    mobjTask.TearDown();
    onAdd_.Reset();
    mobjFilter.TearDown();
    mcolResult->TearDown();
  }

  std::shared_ptr<ResultCollection> Result() const override { return mcolResult; }
  std::shared_ptr<ConditionSnap> CondSnap() const override { return mobjCondSnap; }

  TaskManager& Task() { return mobjTask; }
  std::size_t LineCount() const { return mvecLines.size(); }

 private:
  std::shared_ptr<ResultCollection> mcolResult = std::make_shared<ResultCollection>();
  std::shared_ptr<ConditionSnap> mobjCondSnap = std::make_shared<ConditionSnap>();
  FilterManager mobjFilter;
  TaskManager mobjTask;
  std::vector<std::u16string> mvecLines;
  Subscription onAdd_;
};

/// The add-in over a group of `lines` lines in modules of at most `moduleLines`; one at a time.
class Session {
 public:
  Session(std::int64_t lines, std::int64_t moduleLines) {
    Globals::gobjUtilities = std::make_shared<Utilities>();
    Globals::gobjErrorManager = std::make_shared<ErrorManager>();
    Globals::gobjSetting = std::make_shared<GlobalSetting>();
    Globals::gobjSetting->menumArea = gsAllProjects;
    Globals::gobjSetting->menumIgnoreComment = gsIncludeComment;
    workbench::Group group;
    for (std::int64_t done = 0; done < lines; done += moduleLines) {
      group.File(u"Module" + ToText(done / moduleLines + 1), vbide::ComponentType::StdModule,
                 OneModuleText(std::min(moduleLines, lines - done)));
    }
    mobjWorkbench = group.Build(mobjPlatform.AnsiCodePage());
    Globals::gobjVBE = mobjWorkbench;
  }
  ~Session() {
    Globals::gobjVBE.reset();
    mobjWorkbench.reset();
    Globals::gobjSetting.reset();
    Globals::gobjErrorManager.reset();
    Globals::gobjUtilities.reset();
  }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  GlobalSetting& Setting() { return *Globals::gobjSetting; }
  const workbench::Module& FirstModule() const {
    return *mobjWorkbench->Projects().front()->Components().front()->TheModule();
  }

 private:
  BenchPlatform mobjPlatform;
  std::shared_ptr<workbench::Workbench> mobjWorkbench;
};

/// Seconds of processor time, which other programs on the machine do not disturb. Each action starts from memory that
/// the system has yet to hand out, so that a small task does not live on what a larger one before it left over.
double Seconds(const auto& action) {
  malloc_trim(0);
  const std::clock_t start = std::clock();
  action();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

void Search(benchmark::State& state, std::int64_t moduleLines, gsMode mode, const std::u16string& text) {
  const std::int64_t lines = state.range(0);
  Session session(lines, moduleLines);
  session.Setting().menumMode = mode;
  session.Setting().mstrSearchStr = text;
  for (auto _ : state) {
    ListPage page;
    state.SetIterationTime(Seconds([&page] { page.Task().Run(kTaskSearch); }));
    if (page.LineCount() != static_cast<std::size_t>(lines)) state.SkipWithError("not one result line for each match");
  }
}

/// Each iteration changes a fresh module.
void Replace(benchmark::State& state, bool singleLine) {
  const std::int64_t lines = state.range(0);
  for (auto _ : state) {
    Session session(lines, lines);
    GlobalSetting& setting = session.Setting();
    setting.menumMode = gsRegular;
    setting.mblnRegSingleLine = singleLine;
    setting.mstrSearchStr = u"ne+dle";
    setting.mstrReplaceStr = u"pin";
    TaskManager task;
    state.SetIterationTime(Seconds([&task] { task.Run(kTaskReplaceAll); }));
    const std::u16string text = session.FirstModule().Text();
    if (text.find(u"needle") != std::u16string::npos || session.FirstModule().CountOfLines() != lines) {
      state.SkipWithError("not every line was changed");
    }
  }
}

void Matches(benchmark::State& state) {
  Search(state, 500, gsCommon, u"needle");
}
void FindCommon(benchmark::State& state) {
  Search(state, state.range(0), gsCommon, u"needle");
}
void FindPattern(benchmark::State& state) {
  Search(state, state.range(0), gsPattern, u"ne[a-f]d?e");
}
void FindRegExp(benchmark::State& state) {
  Search(state, state.range(0), gsRegular, u"ne+dle");
}
void ReplaceMultiLine(benchmark::State& state) {
  Replace(state, false);
}
void ReplaceSingleLine(benchmark::State& state) {
  Replace(state, true);
}

BENCHMARK(Matches)->Arg(1'000)->Arg(100'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FindCommon)->Arg(4'000)->Arg(40'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FindPattern)->Arg(4'000)->Arg(40'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FindRegExp)->Arg(4'000)->Arg(40'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ReplaceMultiLine)->Arg(4'000)->Arg(40'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ReplaceSingleLine)->Arg(4'000)->Arg(40'000)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorvane::bench

BENCHMARK_MAIN();

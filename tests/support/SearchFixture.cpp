#include "support/SearchFixture.h"

#include "addin/search/PositionInfo.h"
#include "support/Seen.h"

namespace quorvane::test {

std::u16string CrLf(std::u16string_view text) {
  return ReplaceAll(text, u"\n", kCrLf);
}

std::string Show(const PositionInfo& pi) {
  const auto number = [](std::int32_t value) { return std::to_string(value); };
  const std::u16string text = ReplaceAll(ReplaceAll(pi.MatchStr(), u"\r", u"\\r"), u"\n", u"\\n");
  return ToUtf8(pi.component()->Name()) + " " + number(pi.mlngY1) + "," + number(pi.mlngX1) + "-" + number(pi.mlngY2) +
         "," + number(pi.mlngX2) + " " + ToUtf8(text);
}

std::string Join(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
  return text;
}

TestPage::TestPage() {
  results->Setup(*this);
  task.Setup(*this);
  filter.Setup(*this);
  added_ = filter.OnAdd.Subscribe([this](const std::u16string& line, std::int32_t id) { AddListItem(line, id); });
  named_ = condSnap->Named.Subscribe([this](const std::u16string& text) { caption = text; });
  cleared_ = filter.OnClear.Subscribe([this] { ClearList(); });
}

TestPage::~TestPage() {
  task.TearDown();
  filter.TearDown();
  results->TearDown();
}

void TestPage::AddListItem(const std::u16string& line, std::int32_t id) {
  if (TrimBlanks(line).empty()) return;
  list.push_back(std::to_string(id) + ": " + ToUtf8(line));
}

SearchWorld::SearchWorld(const std::string& codePage) : platform(codePage), page(std::make_unique<TestPage>()) {
  Open(Group{});
}

SearchWorld::~SearchWorld() {
  platform.windows = nullptr;
}

void SearchWorld::Condition(gsArea area, gsMode mode, const std::u16string& text) {
  GlobalSetting& setting = Setting();
  setting.menumArea = area;
  setting.menumMode = mode;
  setting.mstrSearchStr = text;
  setting.mblnMatchCase = false;
  setting.mblnWholeWord = false;
  setting.mblnRegSingleLine = false;
  setting.menumIgnoreComment = gsIncludeComment;
}

void SearchWorld::Open(const Group& group) {
  page->results->Clear();
  windows_.reset();
  host = group.Build(platform.AnsiCodePage());
  windows_ = std::make_unique<workbench::WindowTable>(*host);
  platform.windows = windows_.get();
  Globals::gobjVBE = Seen(*host);
}

void SearchWorld::OpenModule(std::u16string_view code) {
  Open(Group{}.Project(u"P").Module(u"M", code));
  Activate(u"M");
}

workbench::Module& SearchWorld::Module(const std::u16string& name) {
  for (const auto& project : host->Projects()) {
    for (const auto& component : project->Components()) {
      if (component->Name() == name) return Deref(component->TheModule());
    }
  }
  throw std::invalid_argument("no module " + ToUtf8(name));
}

void SearchWorld::Activate(const std::u16string& name, const vbide::Selection& selection) {
  const auto pane = Module(name).CodePane();
  pane->SetSelection(selection);
  pane->Show();
}

std::string SearchWorld::RunTask(TaskManager& task, std::int32_t tt) {
  const auto tell = [this](const std::string& event) { events_.push_back(event); };
  const auto begin = task.TaskBegin.Subscribe([&](std::int32_t type) { tell("begin " + std::to_string(type)); });
  const auto done = task.TaskDone.Subscribe([&](std::int32_t type) { tell("done " + std::to_string(type)); });
  const auto query = task.Query.Subscribe([&](bool&) { tell("query"); });
  const auto scan = task.OnScanModule.Subscribe([&](const std::u16string& name) { tell("scan " + ToUtf8(name)); });
  try {
    task.Run(tt);
  } catch (const Error& error) {
    EXPECT_FALSE(task.Running());
    return std::to_string(error.Number) + " " + ToUtf8(error.Description);
  }
  EXPECT_FALSE(task.Running());
  return "";
}

std::string SearchWorld::Search(std::int32_t tt) {
  return RunTask(page->task, tt);
}

std::string SearchWorld::Replace() {
  TaskManager task;
  return RunTask(task, kTaskReplaceAll);
}

std::string SearchWorld::Matches() const {
  std::vector<std::string> lines;
  for (const auto& match : *page->results) lines.push_back(Show(*match));
  return Join(lines);
}

std::string SearchWorld::Events() {
  return Join(std::exchange(events_, {}));
}

}  // namespace quorvane::test

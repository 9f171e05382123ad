#pragma once

#include <gtest/gtest.h>

#include "addin/core/Globals.h"
#include "addin/results/FilterManager.h"
#include "addin/results/IListPage.h"
#include "addin/search/ConditionSnap.h"
#include "addin/search/ResultCollection.h"
#include "addin/search/TaskManager.h"
#include "addin/settings/GlobalSetting.h"
#include "support/Raised.h"
#include "support/Rows.h"
#include "support/TempFolder.h"
#include "support/TestPlatform.h"
#include "workbench/model/Module.h"
#include "workbench/model/WindowTable.h"
#include "workbench/model/Workbench.h"
#include "workbench/project/GroupBuilder.h"

namespace quorvane::test {

using workbench::Group;

/// Source text as a test writes it, with LF, in the line ends of a module.
std::u16string CrLf(std::u16string_view text);
/// "M 3,5-3,8 word": component, character places (end exclusive) and text; line breaks show as \r\n.
std::string Show(const PositionInfo& pi);
/// The lines joined by LF, so that a difference shows line by line.
std::string Join(const std::vector<std::string>& lines);

/// A page without a window: what a search needs and what it told.
class TestPage final : public IListPage {
 public:
  TestPage();
  ~TestPage() override;

  std::shared_ptr<ResultCollection> Result() const override { return results; }
  std::shared_ptr<ConditionSnap> CondSnap() const override { return condSnap; }
  void ClearList() override { list.clear(); }
  /// Kept as "1: line", by id.
  void AddListItem(const std::u16string& line, std::int32_t id) override;

  std::shared_ptr<ResultCollection> results = std::make_shared<ResultCollection>();
  std::shared_ptr<ConditionSnap> condSnap = std::make_shared<ConditionSnap>();
  TaskManager task;
  FilterManager filter;
  std::u16string caption;
  std::vector<std::string> list;

 private:
  Subscription added_;
  Subscription cleared_;
  Subscription named_;
};

/// A search over a group made from strings. Set the condition in Setting(), open a group, search, and compare what
/// Matches() and Events() give as a whole.
class SearchWorld {
 public:
  explicit SearchWorld(const std::string& codePage = "1252");
  ~SearchWorld();
  SearchWorld(const SearchWorld&) = delete;
  SearchWorld& operator=(const SearchWorld&) = delete;

  GlobalSetting& Setting() { return *Globals::gobjSetting; }
  /// One condition in one call; what is not named keeps its plain value.
  void Condition(gsArea area, gsMode mode, const std::u16string& text);

  void Open(const Group& group);
  /// One project P with one module M that holds `code`, in a module's line ends; its pane is active.
  void OpenModule(std::u16string_view code);
  workbench::Module& Module(const std::u16string& name);
  /// Shows the module's pane with this selection; by default the caret at its start.
  void Activate(const std::u16string& name, const vbide::Selection& selection = {});

  /// Runs a task on the page. Returns "" or the error as "number text".
  std::string Search(std::int32_t tt = kTaskSearch);
  /// Runs a replace all on a task of its own, as the dialog does.
  std::string Replace();
  std::string Matches() const;
  /// Events of the tasks since the last call: "begin 1", "scan M", "query", "done 1".
  std::string Events();

  TestPlatform platform;
  std::unique_ptr<workbench::Workbench> host;
  std::unique_ptr<TestPage> page;

 private:
  std::string RunTask(TaskManager& task, std::int32_t tt);

  std::unique_ptr<workbench::WindowTable> windows_;
  std::vector<std::string> events_;
};

class SearchFixture : public ::testing::Test, public SearchWorld {};

}  // namespace quorvane::test

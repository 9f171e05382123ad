#pragma once

#include <memory>
#include <string>
#include <vector>

#include "addin/core/ILib.h"
#include "addin/core/IVersionUI.h"
#include "addin/results/IResultListDoc.h"
#include "addin/results/IResultPage.h"
#include "addin/search/TaskManager.h"
#include "platform/forms/Control.h"
#include "platform/forms/Controls.h"
#include "platform/forms/Tab.h"
#include "platform/forms/TabControl.h"
#include "vbide/VBIDE.h"

namespace quorvane::test {

using Log = std::vector<std::string>;

/// A page without results that writes down what is done to it.
class RecordedPage final : public IResultPage {
 public:
  explicit RecordedPage(Log& log) : log_(log) {}

  std::shared_ptr<ResultCollection> Result() const override { return nullptr; }
  std::shared_ptr<ConditionSnap> CondSnap() const override { return nullptr; }
  void ClearList() override {}
  void AddListItem(const std::u16string&, std::int32_t) override {}

  std::u16string Key() const override { return key_; }
  void SetKey(const std::u16string& key) override { key_ = key; }
  std::shared_ptr<TaskManager> Task() const override { return nullptr; }
  std::shared_ptr<FilterManager> Filter() const override { return nullptr; }
  WindowHandle ListHWnd() const override { return 0; }
  std::shared_ptr<forms::Control> Panel() const override { return panel; }
  void Setup(const std::shared_ptr<forms::Tab>& theTab) override;
  void TearDown() override;
  void UpdateStatus() override { Note("UpdateStatus"); }
  void LocateNextResult() override { Note("LocateNextResult"); }
  void LocatePrevResult() override { Note("LocatePrevResult"); }
  void ProcessKeyDown(std::int16_t, std::int16_t) override { Note("ProcessKeyDown"); }
  void Reset() override { Note("Reset"); }
  bool CanRefresh() const override { return false; }
  void RefreshResult() override { Note("RefreshResult"); }

  std::shared_ptr<forms::Tab> tab;
  std::shared_ptr<forms::Control> panel = std::make_shared<forms::Control>();

 private:
  void Note(const std::string& what);

  Log& log_;
  std::u16string key_;
};

/// A document for the result tool window with its tab bar and nothing else.
class RecordedDoc final : public vbide::Document, public ILib, public IResultListDoc, public IVersionUI {
 public:
  explicit RecordedDoc(Log& log);
  ~RecordedDoc() override;

  void Setup() override;
  void TearDown() override;
  void Update() override { log_.push_back("document Update"); }

  forms::Controls& Controls() override { return controls_; }
  void PopupMenu() override {}
  bool ShowPreview() const override { return false; }
  WindowHandle hwnd() const override { return 0; }
  std::shared_ptr<forms::TabControl> TabControl() override { return tabControl; }

  std::shared_ptr<forms::TabControl> tabControl = std::make_shared<forms::TabControl>();
  std::function<void()> onSetup;
  std::function<void()> onTearDown;

 private:
  Log& log_;
  forms::Controls controls_;
};

}  // namespace quorvane::test

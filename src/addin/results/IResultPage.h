#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "addin/results/IListPage.h"
#include "platform/NativeWindows.h"

namespace quorvane::forms {
class Control;
class Tab;
}  // namespace quorvane::forms

namespace quorvane {

class FilterManager;
class TaskManager;

/// A page as the tabs, the dialogs and the hotkeys see it.
class IResultPage : public IListPage {
 public:
  /// mstrKey: the key under which the page stands in PageCollection.
  virtual std::u16string Key() const = 0;
  virtual void SetKey(const std::u16string& key) = 0;

  /// mobjTask: runs this page's tasks; null after TearDown.
  virtual std::shared_ptr<TaskManager> Task() const = 0;
  /// mobjFilter: the result document; null after TearDown.
  virtual std::shared_ptr<FilterManager> Filter() const = 0;
  /// Window of the list; 0 while it is not shown. Error 91 after TearDown.
  virtual WindowHandle ListHWnd() const = 0;
  /// mobjPanel: the container of the page's controls; null after TearDown.
  virtual std::shared_ptr<forms::Control> Panel() const = 0;

  /// Makes the controls and the engines of the page, for the new tab.
  virtual void Setup(const std::shared_ptr<forms::Tab>& theTab) = 0;
  /// Ends what Setup began; raises nothing.
  virtual void TearDown() = 0;

  virtual void UpdateStatus() = 0;
  virtual void LocateNextResult() = 0;
  virtual void LocatePrevResult() = 0;
  virtual void ProcessKeyDown(std::int16_t keyCode, std::int16_t shift) = 0;
  virtual void Reset() = 0;
  virtual bool CanRefresh() const = 0;
  virtual void RefreshResult() = 0;
};

}  // namespace quorvane

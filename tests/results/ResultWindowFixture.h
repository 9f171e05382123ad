#pragma once

#include "addin/core/ISearchDialog.h"
#include "addin/results/ICodePreview.h"
#include "addin/results/Page.h"
#include "addin/results/PageManager.h"
#include "addin/results/ResultDialog.h"
#include "addin/search/ICondInfo.h"
#include "addin/search/PositionInfo.h"
#include "platform/forms/Form.h"
#include "platform/forms/Label.h"
#include "platform/forms/Menu.h"
#include "platform/forms/OwnerDrawList.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Tab.h"
#include "platform/forms/TabControl.h"
#include "support/SearchFixture.h"
#include "workbench/model/AddInLoader.h"
#include "workbench/model/ToolWindow.h"

namespace quorvane::test {

using workbench::Group;

/// The add-in connected to an embedded host, with its real result window; the forms that it shows are stand-ins that
/// write down what is asked of them.
class ResultWorld {
 public:
  /// Opens the group and connects.
  explicit ResultWorld(const Group& group);
  ~ResultWorld();
  ResultWorld(const ResultWorld&) = delete;
  ResultWorld& operator=(const ResultWorld&) = delete;

  ResultDialog& Doc() { return dynamic_cast<ResultDialog&>(*Globals::gobjResultDoc); }
  workbench::ToolWindow& Window() { return dynamic_cast<workbench::ToolWindow&>(*Globals::gobjToolWindow); }
  PageManager& Pages() { return *Globals::gobjPageManager; }
  Page& Active() { return dynamic_cast<Page&>(*Pages().ActivePage()); }
  forms::OwnerDrawList& List() { return *Active().mlstResultList; }
  GlobalSetting& Setting() { return *Globals::gobjSetting; }

  /// Searches all projects on the active page, making one where there is none. "" or the error as "number text".
  std::string Search(const std::u16string& text, gsMode mode = gsCommon);
  /// The rows of the active page, "id: text" each, the selected one behind ">".
  std::string Rows();
  /// "M 2,5-2,6": the selection of the active code pane.
  std::string Selection();
  std::string Status() { return ToUtf8(Active().mobjLabel->Caption()); }
  /// Log entries since the last call, joined by blanks.
  std::string Log();
  /// The descriptions of the error boxes since the last call, each answered with OK beforehand.
  std::string Boxes();

  TestPlatform platform;
  std::vector<std::string> log;
  bool failPreview = false;        ///< whether the preview fails to fill itself
  std::int32_t rowUnderMouse = 0;  ///< what the window system answers for any point of a list
  bool previewVisible = false;

 private:
  class Windows;
  class SearchDialog;
  class Preview;

  void RegisterForms();

  std::shared_ptr<workbench::Workbench> host_;
  std::unique_ptr<NativeWindows> windows_;
  std::unique_ptr<workbench::AddInLoader> loader_;
};

/// A stylesheet with this body for MatchItem.
std::u16string Stylesheet(std::u16string_view body);

}  // namespace quorvane::test

#pragma once

#include <array>
#include <memory>

#include "platform/forms/CheckBox.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/Menu.h"
#include "platform/forms/OptionButton.h"
#include "platform/forms/OptionGroup.h"

namespace quorvane {

class Controls;

/// The controls of the search dialog as they are designed. The frames stand side by side below the combo boxes, Area,
/// Mode, Option, with lblCurModule below the last two; the buttons form a column on the right.
class SearchDialogControls {
 public:
  SearchDialogControls();

  const std::shared_ptr<Label> lblMatch = std::make_shared<Label>();
  const std::shared_ptr<ComboBox> cmbSearch = std::make_shared<ComboBox>();
  const std::shared_ptr<Label> lblReplace = std::make_shared<Label>();
  const std::shared_ptr<ComboBox> cmbReplace = std::make_shared<ComboBox>();

  const std::shared_ptr<Frame> frameArea = std::make_shared<Frame>();
  OptionGroup optArea;  ///< the index is a gsArea
  /// optArea(Index) by its index, which is not the order on the screen.
  const std::array<std::shared_ptr<OptionButton>, 5> optAreaButtons = MakeOptionButtons<5>(optArea);

  const std::shared_ptr<Frame> frameMode = std::make_shared<Frame>();
  OptionGroup optMode;  ///< the index is a gsMode
  const std::array<std::shared_ptr<OptionButton>, 3> optModeButtons = MakeOptionButtons<3>(optMode);

  const std::shared_ptr<Frame> frameOption = std::make_shared<Frame>();
  const std::shared_ptr<CheckBox> chkMatchCase = std::make_shared<CheckBox>();
  const std::shared_ptr<CheckBox> chkWholeWord = std::make_shared<CheckBox>();
  const std::shared_ptr<CheckBox> chkIgnoreComment = std::make_shared<CheckBox>();

  const std::shared_ptr<Label> lblCurModule = std::make_shared<Label>();

  const std::shared_ptr<CommandButton> cmdSearch = std::make_shared<CommandButton>();
  const std::shared_ptr<CommandButton> cmdReplace = std::make_shared<CommandButton>();
  const std::shared_ptr<CommandButton> cmdCancel = std::make_shared<CommandButton>();

  const std::shared_ptr<Menu> mnu快捷菜单 = std::make_shared<Menu>();  ///< shown by the mouse alone
  Menu& mnu显示结果列表 = mnu快捷菜单->Add();
  Menu& mnuToNewTab = mnu快捷菜单->Add(Menu::Above::Line);
  Menu& mnuToCurTab = mnu快捷菜单->Add();
  Menu& mnu选项 = mnu快捷菜单->Add(Menu::Above::Line);
  Menu& mnu关于 = mnu快捷菜单->Add(Menu::Above::Line);

 protected:
  /// Takes all of them into a form's collection, in tab order, the menu's entries last.
  void PlaceIn(Controls& controls) const;

 private:
  void PlaceMenu(Controls& controls) const;
};

}  // namespace quorvane

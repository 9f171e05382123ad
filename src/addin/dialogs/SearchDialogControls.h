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

namespace quorvane::forms {
class Controls;
}  // namespace quorvane::forms

namespace quorvane {

/// The controls of the search dialog as they are designed. The frames stand side by side below the combo boxes, Area,
/// Mode, Option, with lblCurModule below the last two; the buttons form a column on the right.
class SearchDialogControls {
 public:
  SearchDialogControls();

  const std::shared_ptr<forms::Label> lblMatch = std::make_shared<forms::Label>();
  const std::shared_ptr<forms::ComboBox> cmbSearch = std::make_shared<forms::ComboBox>();
  const std::shared_ptr<forms::Label> lblReplace = std::make_shared<forms::Label>();
  const std::shared_ptr<forms::ComboBox> cmbReplace = std::make_shared<forms::ComboBox>();

  const std::shared_ptr<forms::Frame> frameArea = std::make_shared<forms::Frame>();
  forms::OptionGroup optArea;  ///< the index is a gsArea
  /// optArea(Index) by its index, which is not the order on the screen.
  const std::array<std::shared_ptr<forms::OptionButton>, 5> optAreaButtons = forms::MakeOptionButtons<5>(optArea);

  const std::shared_ptr<forms::Frame> frameMode = std::make_shared<forms::Frame>();
  forms::OptionGroup optMode;  ///< the index is a gsMode
  const std::array<std::shared_ptr<forms::OptionButton>, 3> optModeButtons = forms::MakeOptionButtons<3>(optMode);

  const std::shared_ptr<forms::Frame> frameOption = std::make_shared<forms::Frame>();
  const std::shared_ptr<forms::CheckBox> chkMatchCase = std::make_shared<forms::CheckBox>();
  const std::shared_ptr<forms::CheckBox> chkWholeWord = std::make_shared<forms::CheckBox>();
  const std::shared_ptr<forms::CheckBox> chkIgnoreComment = std::make_shared<forms::CheckBox>();

  const std::shared_ptr<forms::Label> lblCurModule = std::make_shared<forms::Label>();

  const std::shared_ptr<forms::CommandButton> cmdSearch = std::make_shared<forms::CommandButton>();
  const std::shared_ptr<forms::CommandButton> cmdReplace = std::make_shared<forms::CommandButton>();
  const std::shared_ptr<forms::CommandButton> cmdCancel = std::make_shared<forms::CommandButton>();

  const std::shared_ptr<forms::Menu> mnu快捷菜单 = std::make_shared<forms::Menu>();  ///< shown by the mouse alone
  forms::Menu& mnu显示结果列表 = mnu快捷菜单->Add();
  forms::Menu& mnuToNewTab = mnu快捷菜单->Add(forms::Menu::Above::Line);
  forms::Menu& mnuToCurTab = mnu快捷菜单->Add();
  forms::Menu& mnu选项 = mnu快捷菜单->Add(forms::Menu::Above::Line);
  forms::Menu& mnu关于 = mnu快捷菜单->Add(forms::Menu::Above::Line);

 protected:
  /// Takes all of them into a form's collection, in tab order, the menu's entries last.
  void PlaceIn(forms::Controls& controls) const;

 private:
  void PlaceMenu(forms::Controls& controls) const;
};

}  // namespace quorvane

#include "addin/dialogs/SearchDialogControls.h"

#include <string>

#include "addin/dialogs/ControlRow.h"
#include "platform/forms/Controls.h"

namespace quorvane {

namespace {

/// The buttons of optArea from top to bottom.
constexpr std::array<std::size_t, 5> kAreasOnScreen = {3, 0, 1, 2, 4};

}  // namespace

SearchDialogControls::SearchDialogControls() {
  for (const std::size_t area : kAreasOnScreen) frameArea->Add(optAreaButtons[area]);
  for (const auto& button : optModeButtons) frameMode->Add(button);
  for (const auto& box : {chkMatchCase, chkWholeWord, chkIgnoreComment}) frameOption->Add(box);
  cmdCancel->SetVisible(false);
  mnu快捷菜单->SetVisible(false);
}

void SearchDialogControls::PlaceIn(forms::Controls& controls) const {
  const ControlRow rows[] = {
      {u"lblMatch", lblMatch},
      {u"cmbSearch", cmbSearch},
      {u"lblReplace", lblReplace},
      {u"cmbReplace", cmbReplace},
      {u"frameArea", frameArea, u"optArea"},
      {u"frameMode", frameMode, u"optMode"},
      {u"frameOption", frameOption},
      {u"chkMatchCase", chkMatchCase},
      {u"chkWholeWord", chkWholeWord},
      {u"chkIgnoreComment", chkIgnoreComment},
      {u"lblCurModule", lblCurModule},
      {u"cmdSearch", cmdSearch},
      {u"cmdReplace", cmdReplace},
      {u"cmdCancel", cmdCancel},
  };
  PlaceRows(controls, rows);
  PlaceMenu(controls);
}

void SearchDialogControls::PlaceMenu(forms::Controls& controls) const {
  static constexpr std::array<const char16_t*, 8> kEntries = {
      u"mnu显示结果列表", u"mnu_s5", u"mnuToNewTab", u"mnuToCurTab", u"mnu_s10", u"mnu选项", u"mnu_s20", u"mnu关于"};
  controls.Place(u"mnu快捷菜单", mnu快捷菜单);
  for (std::size_t i = 0; i < kEntries.size(); ++i) {
    controls.Place(kEntries[i], mnu快捷菜单->Items().at(i));
  }
}

}  // namespace quorvane

#include "addin/dialogs/SearchDialogControls.h"

#include <string>

#include "platform/forms/Controls.h"

namespace quorvane {

namespace {

/// The buttons of optArea from top to bottom.
constexpr std::array<std::size_t, 5> kAreasOnScreen = {3, 0, 1, 2, 4};

void PlaceButtons(forms::Controls& controls, const std::u16string& name, const forms::Frame& frame) {
  for (const auto& child : frame.Children) {
    controls.Place(name, std::static_pointer_cast<forms::OptionButton>(child)->Index(), child);
  }
}

}  // namespace

SearchDialogControls::SearchDialogControls() {
  for (const std::size_t area : kAreasOnScreen) frameArea->Children.push_back(optAreaButtons[area]);
  frameMode->Children.assign(optModeButtons.begin(), optModeButtons.end());
  frameOption->Children = {chkMatchCase, chkWholeWord, chkIgnoreComment};
  cmdCancel->SetVisible(false);
  mnu快捷菜单->SetVisible(false);
}

void SearchDialogControls::PlaceIn(forms::Controls& controls) const {
  controls.Place(u"lblMatch", lblMatch);
  controls.Place(u"cmbSearch", cmbSearch);
  controls.Place(u"lblReplace", lblReplace);
  controls.Place(u"cmbReplace", cmbReplace);
  controls.Place(u"frameArea", frameArea);
  PlaceButtons(controls, u"optArea", *frameArea);
  controls.Place(u"frameMode", frameMode);
  PlaceButtons(controls, u"optMode", *frameMode);
  controls.Place(u"frameOption", frameOption);
  controls.Place(u"chkMatchCase", chkMatchCase);
  controls.Place(u"chkWholeWord", chkWholeWord);
  controls.Place(u"chkIgnoreComment", chkIgnoreComment);
  controls.Place(u"lblCurModule", lblCurModule);
  controls.Place(u"cmdSearch", cmdSearch);
  controls.Place(u"cmdReplace", cmdReplace);
  controls.Place(u"cmdCancel", cmdCancel);
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

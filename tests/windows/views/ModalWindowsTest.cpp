#include <array>

#include "ViewsFixture.h"
#include "addin/connect/HotkeyProxy.h"
#include "addin/connect/Updater.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/dialogs/frmAbout.h"
#include "addin/dialogs/frmOption.h"
#include "addin/dialogs/frmProcessing.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Text.h"
#include "chordtrap/Manager.h"
//
#include <commctrl.h>

namespace quorvane::test {
namespace {

class ModalWindowsTest : public ViewsTest {
 protected:
  void WalkOptions(const std::function<void(frmOption&)>& walk) {
    Walk(
        u"frmOption", [] { forms::TheForms().Instance(u"frmOption")->Show(forms::FormModal::Modal); },
        [&] { walk(The<frmOption>()); });
  }
  static HWND Below(HWND parent, const wchar_t* className, int skip = 0) {
    HWND found = nullptr;
    for (int i = 0; i <= skip; ++i) found = ::FindWindowExW(parent, found, className, nullptr);
    return found;
  }
  /// The window around the parts of the key editor: the only child of its page.
  static HWND KeyEditor(const frmOption& options) {
    for (HWND at = ::GetWindow(WindowOf(*options.SSTab设定), GW_HWNDFIRST); at != nullptr;
         at = ::GetWindow(at, GW_HWNDNEXT)) {
      const HWND child = ::GetWindow(at, GW_CHILD);
      if (child != nullptr && Below(child, WC_LISTVIEWW) != nullptr) return child;
    }
    return nullptr;
  }
  void PickTab(const frmOption& options, int tab) {
    const HWND strip = WindowOf(*options.SSTab设定);
    RECT room{};
    ::SendMessageW(strip, TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&room));
    ClickAt(strip, {(room.left + room.right) / 2, (room.top + room.bottom) / 2});
    EXPECT_EQ(options.SSTab设定->Tab(), tab);
  }
  /// "lines interval hide to maximize sensibility language".
  static std::string Memory() {
    const GlobalSetting& setting = *Globals::gobjSetting;
    std::string all;
    for (const std::int32_t value :
         {std::int32_t{setting.mintRelativeLineCount}, Globals::gobjUpdater->menumUpdateInterval,
          setting.menumAutoHideSearchDlg, setting.menumDefaultSearchTo, std::int32_t{setting.mblnMaximizeWhenLocate},
          Globals::gobjUpdater->menumSensibility, Globals::Language().Language}) {
      all += std::to_string(value) + " ";
    }
    return all;
  }
  static std::u16string Keys() {
    std::u16string all;
    auto& items = Globals::gobjHotkeyProxy->Manager->Items();
    for (std::int32_t i = 1; i <= items.Count(); ++i) all += chordtrap::KeyText(items[i]->Key) + u"|";
    return all;
  }
  static std::u16string Cell(HWND list, int row, int column) {
    std::array<wchar_t, 80> text{};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    ::SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return std::u16string(text.data(), text.data() + std::wcslen(text.data()));
  }
};

TEST_F(ModalWindowsTest, TheHostIsDisabledMeanwhileAndTheFocusComesBack) {
  ShowSearchDialog();
  SearchDialog().SetFocus(SearchDialog().cmbReplace);
  const HWND before = ::GetFocus();
  Walk(
      u"frmAbout",
      [&] {
        forms::TheForms().Instance(u"frmAbout")->Show(forms::FormModal::Modal, SearchDialog().shared_from_this());
      },
      [&] {
        EXPECT_FALSE(::IsWindowEnabled(mainWindow));
        EXPECT_EQ(::GetForegroundWindow(), WindowOf(The<frmAbout>()));
        Type(u"x");
        Press(VK_RETURN);
      });
  EXPECT_TRUE(::IsWindowEnabled(mainWindow));
  EXPECT_EQ(::GetForegroundWindow(), mainWindow);
  EXPECT_EQ(::GetFocus(), before);
  EXPECT_EQ(TextOf(hostBox) + SearchDialog().cmbReplace->Text(), u"code");
}

TEST_F(ModalWindowsTest, TheAboutBoxShowsItsTextsAndOpensItsLinks) {
  Walk(
      u"frmAbout", [] { forms::TheForms().Instance(u"frmAbout")->Show(forms::FormModal::Modal); },
      [&] {
        auto& about = The<frmAbout>();
        about.txt说明->SetText(u"one\ntwo\rthree\r\n");
        EXPECT_EQ(TextOf(WindowOf(*about.txt说明)), u"one\r\ntwo\r\nthree\r\n");
        Click(WindowOf(*about.txt说明));
        Type(u"x");
        EXPECT_EQ(about.txt说明->Text(), u"one\ntwo\rthree\r\n") << "it is read alone";
        Click(WindowOf(*about.lblProjectUrl));
        ::SetFocus(WindowOf(*about.lblEmail));
        Press(VK_SPACE);
        EXPECT_EQ(platform.shell.Opened.size(), 2U);
        EXPECT_EQ(platform.shell.Opened.back(), u"mailto:quorvane@host.example");
        Press(VK_ESCAPE);
      });
}

TEST_F(ModalWindowsTest, TheGeneralTabIsKeptByOkAlone) {
  const auto edit = [&](frmOption& o) {
    ::SetFocus(WindowOf(*o.txt预览行数));
    Press('A', {VK_CONTROL});
    Type(u"99");
    Click(WindowOf(*o.cmd恢复默认预览行数));
    EXPECT_EQ(TextOf(WindowOf(*o.txt预览行数)), u"12");
    ::SetFocus(WindowOf(*o.txt预览行数));
    Press('A', {VK_CONTROL});
    Type(u"7");
    for (const auto& option : {o.optIntervalButtons[0], o.optIntervalButtons[4], o.optAutoHideSearchDlgButtons[1],
                               o.opt默认搜索位置Buttons[0]}) {
      Click(WindowOf(*option));
    }
    Click(WindowOf(*o.chk定位时将代码窗口最大化));
    ::SetFocus(WindowOf(*o.Slider灵敏度));
    for (const char16_t* expected : {u"Sensitivity:mediam(Minor)", u"Sensitivity:low(Major)"}) {
      Press(VK_LEFT);
      EXPECT_EQ(TextOf(WindowOf(*o.lbl灵敏度)), expected);
    }
    for (const HWND place : {WindowOf(*o.txt预览行数), WindowOf(*o.SSTab设定), WindowOf(*o.Slider灵敏度)}) {
      ::SetFocus(place);
      Press(VK_RETURN);
      Press(VK_ESCAPE);
    }
    EXPECT_TRUE(o.Loaded()) << "neither key closes it";
  };
  const std::string before = Memory();
  WalkOptions([&](frmOption& options) {
    edit(options);
    Click(WindowOf(*options.cmd取消));
  });
  EXPECT_EQ(Memory(), before);
  WalkOptions([&](frmOption& options) {
    edit(options);
    Press('O', {VK_MENU});
  });
  EXPECT_EQ(Memory(), "7 4 1 0 " + std::to_string(before[9] == '1' ? 0 : 1) + " 0 1 ");
}

TEST_F(ModalWindowsTest, TabsLeadToTheirPagesAndTheStylesheetKeepsItsBreaks) {
  WalkOptions([&](frmOption& options) {
    Globals::gobjSetting->SetXSL(u"a\nb");
    options.TextXsl->SetText(u"a\nb");
    std::string order;
    for (int i = 0; i < 4; ++i) {
      Press(VK_TAB);
      const auto control = options.ActiveControl();
      order += (control ? ToUtf8(control->Name()) : "none") + " ";
    }
    EXPECT_EQ(order, "txt预览行数 cmd恢复默认预览行数 optInterval(2) Slider灵敏度 ");
    PickTab(options, OptionControls::kFilterTab);
    EXPECT_TRUE(::IsWindowVisible(WindowOf(*options.TextXsl)));
    EXPECT_FALSE(::IsWindowVisible(WindowOf(*options.txt预览行数)));
    Press(VK_TAB);
    EXPECT_EQ(::GetFocus(), WindowOf(*options.TextXsl));
    std::string walked;
    for (const auto& [key, shift] : {std::pair{VK_TAB, false},
                                     {VK_TAB, true},
                                     {VK_NEXT, false},
                                     {VK_NEXT, false},
                                     {VK_NEXT, false},
                                     {VK_TAB, true},
                                     {VK_PRIOR, false},
                                     {VK_PRIOR, false}}) {
      if (shift) {
        Press(key, {VK_CONTROL, VK_SHIFT});
      } else {
        Press(key, {VK_CONTROL});
      }
      walked += std::to_string(options.SSTab设定->Tab());
      EXPECT_EQ(::GetFocus(), WindowOf(*options.SSTab设定));
    }
    EXPECT_EQ(walked, "21230321");
    Press(VK_TAB);
    Press(VK_END, {VK_CONTROL});
    Press(VK_RETURN);
    Type(u"c");
    EXPECT_EQ(options.TextXsl->Text(), u"a\nb\nc");
    Click(WindowOf(*options.cmd应用过滤器));
    EXPECT_EQ(Globals::gobjSetting->XSL(), u"a\nb\nc");
    Press('C', {VK_MENU});
  });
}

TEST_F(ModalWindowsTest, KeysAreEditedAndATakenOneIsTold) {
  const std::u16string before = Keys();
  WalkOptions([&](frmOption& options) {
    PickTab(options, OptionControls::kHotkeyTab);
    const HWND editor = KeyEditor(options);
    const HWND list = Below(editor, WC_LISTVIEWW);
    const HWND box = Below(editor, L"EDIT");
    const HWND add = Below(editor, L"BUTTON");
    const HWND remove = Below(editor, L"BUTTON", 1);
    const HWND warning = Below(editor, L"STATIC");
    EXPECT_EQ(::SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 5);
    EXPECT_EQ(Cell(list, 0, 0) + u" " + Cell(list, 0, 1), u"Open Quorvane Ctrl+Q");
    Press(VK_TAB);
    EXPECT_EQ(::GetFocus(), list);
    ::SetFocus(WindowOf(*options.cmd取消));
    ::SetFocus(list);
    Press(VK_RETURN);
    EXPECT_TRUE(options.Loaded()) << "the focus has left that button";
    Press(VK_END);
    EXPECT_EQ(options.ChordTrapControl1.Selected(), 5);
    EXPECT_FALSE(::IsWindowEnabled(add) || ::IsWindowEnabled(remove));
    Press(VK_TAB);
    EXPECT_EQ(::GetFocus(), box);
    Press('Q', {VK_CONTROL});
    EXPECT_EQ(TextOf(box), u"Ctrl+Q");
    EXPECT_EQ(TextOf(warning), u"\u26A0 Ctrl+Q: Open Quorvane");
    EXPECT_FALSE(::IsWindowEnabled(add)) << "it has an owner";
    Click(box);
    for (const int key : {VK_ESCAPE, VK_RETURN, VK_F4}) Press(key, {VK_MENU, VK_SHIFT});
    EXPECT_EQ(TextOf(box), u"Alt+Shift+F4");
    EXPECT_TRUE(options.Loaded());
    EXPECT_EQ(TextOf(warning), u"");
    Press(VK_TAB);
    Press(VK_SPACE);
    EXPECT_EQ(Cell(list, 4, 1), u"Alt+Shift+F4");
    EXPECT_TRUE(::IsWindowEnabled(remove));
    options.ChordTrapControl1.Press({VK_F4, chordtrap::kAlt | chordtrap::kShift});
    EXPECT_EQ(TextOf(warning), u"") << "its own key";
    Click(WindowOf(*options.cmd确定));
  });
  EXPECT_EQ(Keys(), before.substr(0, before.size() - 1) + u"Alt+Shift+F4|");
}

TEST_F(ModalWindowsTest, AnotherLanguageIsEverywhereAtOnce) {
  ShowSearchDialog();
  WalkOptions([&](frmOption& options) {
    PickTab(options, OptionControls::kLanguageTab);
    ::SetFocus(WindowOf(*options.Combo语言));
    Press(VK_UP);
    EXPECT_EQ(options.Combo语言->ListIndex(), 0);
    EXPECT_EQ(TextOf(WindowOf(*SearchDialog().cmdSearch)), u"&Search");
    Click(WindowOf(*options.cmd确定));
  });
  EXPECT_EQ(TextOf(WindowOf(*SearchDialog().cmdSearch)), u"搜索(&S)");
}

TEST_F(ModalWindowsTest, AModalFormAboveAnotherGivesTheFocusBackToThatOne) {
  WalkOptions([&](frmOption& options) {
    MessageLoop::TimerId timer = 0;
    int value = -1;
    timer = platform.loop.StartTimer(500, [&] {
      platform.loop.StopTimer(timer);
      auto& progress = The<frmProcessing>();
      EXPECT_FALSE(::IsWindowEnabled(WindowOf(options)));
      value = static_cast<int>(::SendMessageW(WindowOf(*progress.pb检查更新), PBM_GETPOS, 0, 0));
      EXPECT_EQ(value, progress.pb检查更新->Value());
      ::PostMessageW(WindowOf(progress), WM_SYSCOMMAND, SC_CLOSE, 0);
    });
    Click(WindowOf(*options.cmd检查更新));
    EXPECT_GE(value, 10);
    EXPECT_FALSE(platform.web.Waiting()) << "closing cancels";
    EXPECT_TRUE(::IsWindowEnabled(WindowOf(options)));
    EXPECT_FALSE(::IsWindowEnabled(mainWindow));
    EXPECT_EQ(::GetFocus(), WindowOf(*options.cmd检查更新));
    options.CloseByUser();
  });
  EXPECT_TRUE(::IsWindowEnabled(mainWindow));
  EXPECT_EQ(::GetFocus(), hostBox);
}

}  // namespace
}  // namespace quorvane::test

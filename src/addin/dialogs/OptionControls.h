#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>

#include "chordtrap/ChordTrapControl.h"
#include "platform/forms/CheckBox.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Frame.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"
#include "platform/forms/OptionGroup.h"
#include "platform/forms/Slider.h"
#include "platform/forms/TabStrip.h"
#include "platform/forms/TextBox.h"

namespace quorvane::forms {
class Controls;
}  // namespace quorvane::forms

namespace quorvane {

/// The controls of the options dialog as they are designed, tab by tab, with the two buttons below the tabs. The
/// container of a control is its frame, or the panel of its tab.
class OptionControls {
 public:
  static constexpr std::int16_t kGeneralTab = 0;
  static constexpr std::int16_t kFilterTab = 1;
  static constexpr std::int16_t kHotkeyTab = 2;
  static constexpr std::int16_t kLanguageTab = 3;

  OptionControls();

  const std::shared_ptr<forms::TabStrip> SSTab设定 = std::make_shared<forms::TabStrip>(std::int16_t{4});

  // General
  const std::shared_ptr<forms::Frame> Frame代码预览 = std::make_shared<forms::Frame>();
  const std::shared_ptr<forms::Label> lbl预览行数 = std::make_shared<forms::Label>();
  const std::shared_ptr<forms::TextBox> txt预览行数 = std::make_shared<forms::TextBox>();
  const std::shared_ptr<forms::CommandButton> cmd恢复默认预览行数 = std::make_shared<forms::CommandButton>();

  const std::shared_ptr<forms::Frame> Frame更新 = std::make_shared<forms::Frame>();
  const std::shared_ptr<forms::Frame> Frame自动检查更新 = std::make_shared<forms::Frame>();  ///< in Frame更新
  forms::OptionGroup optInterval;  ///< the index is the interval
  const std::array<std::shared_ptr<forms::OptionButton>, 5> optIntervalButtons =
      forms::MakeOptionButtons<5>(optInterval);
  const std::shared_ptr<forms::Slider> Slider灵敏度 = std::make_shared<forms::Slider>(0, 2);
  const std::shared_ptr<forms::Label> lbl灵敏度 = std::make_shared<forms::Label>();
  const std::shared_ptr<forms::CommandButton> cmd检查更新 = std::make_shared<forms::CommandButton>();

  const std::shared_ptr<forms::Frame> Frame自动隐藏搜索框 = std::make_shared<forms::Frame>();
  forms::OptionGroup optAutoHideSearchDlg;
  const std::array<std::shared_ptr<forms::OptionButton>, 3> optAutoHideSearchDlgButtons =
      forms::MakeOptionButtons<3>(optAutoHideSearchDlg);

  const std::shared_ptr<forms::Frame> Frame默认搜索位置 = std::make_shared<forms::Frame>();
  forms::OptionGroup opt默认搜索位置;
  const std::array<std::shared_ptr<forms::OptionButton>, 3> opt默认搜索位置Buttons =
      forms::MakeOptionButtons<3>(opt默认搜索位置);

  const std::shared_ptr<forms::Frame> Frame定位选项 = std::make_shared<forms::Frame>();
  const std::shared_ptr<forms::CheckBox> chk定位时将代码窗口最大化 = std::make_shared<forms::CheckBox>();

  // Filter
  const std::shared_ptr<forms::TextBox> TextXsl = std::make_shared<forms::TextBox>(forms::TextBox::Lines::Many);
  const std::shared_ptr<forms::CommandButton> cmd应用过滤器 = std::make_shared<forms::CommandButton>();
  const std::shared_ptr<forms::CommandButton> cmd重置过滤器 = std::make_shared<forms::CommandButton>();
  const std::shared_ptr<forms::CommandButton> cmd过滤器帮助 = std::make_shared<forms::CommandButton>();

  // Hotkey
  chordtrap::ChordTrapControl ChordTrapControl1;  ///< fills its tab

  // Language
  const std::shared_ptr<forms::Frame> Frame选择语言 = std::make_shared<forms::Frame>();
  const std::shared_ptr<forms::ComboBox> Combo语言 =
      std::make_shared<forms::ComboBox>();  ///< picked from, never typed into

  // Below the tabs
  const std::shared_ptr<forms::CommandButton> cmd确定 = std::make_shared<forms::CommandButton>();
  const std::shared_ptr<forms::CommandButton> cmd取消 = std::make_shared<forms::CommandButton>();

 protected:
  /// Takes all of them but ChordTrapControl1 into a form's collection, in tab order.
  void PlaceIn(forms::Controls& controls) const;

 private:
  void PutInFrames();
  void PutOnTab(std::int16_t tab, std::initializer_list<std::shared_ptr<forms::Control>> controls);
};

}  // namespace quorvane

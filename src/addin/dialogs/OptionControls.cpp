#include "addin/dialogs/OptionControls.h"

#include "platform/forms/Controls.h"

namespace quorvane {

namespace {

void Fill(const std::shared_ptr<forms::Frame>& frame, std::initializer_list<std::shared_ptr<forms::Control>> controls) {
  for (const auto& control : controls) {
    frame->Children.push_back(control);
    control->SetContainer(frame);
  }
}

template <std::size_t N>
void Fill(const std::shared_ptr<forms::Frame>& frame,
          const std::array<std::shared_ptr<forms::OptionButton>, N>& buttons) {
  for (const auto& button : buttons) Fill(frame, {button});
}

template <std::size_t N>
void PlaceButtons(forms::Controls& controls, const std::u16string& name,
                  const std::array<std::shared_ptr<forms::OptionButton>, N>& buttons) {
  for (const auto& button : buttons) controls.Place(name, button->Index(), button);
}

}  // namespace

OptionControls::OptionControls() {
  PutInFrames();
  PutOnTab(kGeneralTab, {Frame代码预览, Frame更新, Frame自动隐藏搜索框, Frame默认搜索位置, Frame定位选项});
  PutOnTab(kFilterTab, {TextXsl, cmd应用过滤器, cmd重置过滤器, cmd过滤器帮助});
  PutOnTab(kLanguageTab, {Frame选择语言});
}

void OptionControls::PutInFrames() {
  Fill(Frame代码预览, {lbl预览行数, txt预览行数, cmd恢复默认预览行数});
  Fill(Frame自动检查更新, optIntervalButtons);
  Fill(Frame更新, {Frame自动检查更新, Slider灵敏度, lbl灵敏度, cmd检查更新});
  Fill(Frame自动隐藏搜索框, optAutoHideSearchDlgButtons);
  Fill(Frame默认搜索位置, opt默认搜索位置Buttons);
  Fill(Frame定位选项, {chk定位时将代码窗口最大化});
  Fill(Frame选择语言, {Combo语言});
}

void OptionControls::PutOnTab(std::int16_t tab, std::initializer_list<std::shared_ptr<forms::Control>> controls) {
  for (const auto& control : controls) control->SetContainer(SSTab设定->Panel(tab));
}

void OptionControls::PlaceIn(forms::Controls& controls) const {
  controls.Place(u"SSTab设定", SSTab设定);
  controls.Place(u"Frame代码预览", Frame代码预览);
  controls.Place(u"lbl预览行数", lbl预览行数);
  controls.Place(u"txt预览行数", txt预览行数);
  controls.Place(u"cmd恢复默认预览行数", cmd恢复默认预览行数);
  controls.Place(u"Frame更新", Frame更新);
  controls.Place(u"Frame自动检查更新", Frame自动检查更新);
  PlaceButtons(controls, u"optInterval", optIntervalButtons);
  controls.Place(u"Slider灵敏度", Slider灵敏度);
  controls.Place(u"lbl灵敏度", lbl灵敏度);
  controls.Place(u"cmd检查更新", cmd检查更新);
  controls.Place(u"Frame自动隐藏搜索框", Frame自动隐藏搜索框);
  PlaceButtons(controls, u"optAutoHideSearchDlg", optAutoHideSearchDlgButtons);
  controls.Place(u"Frame默认搜索位置", Frame默认搜索位置);
  PlaceButtons(controls, u"opt默认搜索位置", opt默认搜索位置Buttons);
  controls.Place(u"Frame定位选项", Frame定位选项);
  controls.Place(u"chk定位时将代码窗口最大化", chk定位时将代码窗口最大化);
  controls.Place(u"TextXsl", TextXsl);
  controls.Place(u"cmd应用过滤器", cmd应用过滤器);
  controls.Place(u"cmd重置过滤器", cmd重置过滤器);
  controls.Place(u"cmd过滤器帮助", cmd过滤器帮助);
  controls.Place(u"Frame选择语言", Frame选择语言);
  controls.Place(u"Combo语言", Combo语言);
  controls.Place(u"cmd确定", cmd确定);
  controls.Place(u"cmd取消", cmd取消);
}

}  // namespace quorvane

#include "addin/dialogs/OptionControls.h"

#include "addin/dialogs/ControlRow.h"

namespace quorvane {

namespace {

void Fill(const std::shared_ptr<forms::Frame>& frame, std::initializer_list<std::shared_ptr<forms::Control>> controls) {
  for (const auto& control : controls) frame->Add(control);
}

template <std::size_t N>
void Fill(const std::shared_ptr<forms::Frame>& frame,
          const std::array<std::shared_ptr<forms::OptionButton>, N>& buttons) {
  for (const auto& button : buttons) Fill(frame, {button});
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
  const ControlRow rows[] = {
      {u"SSTab设定", SSTab设定},
      {u"Frame代码预览", Frame代码预览},
      {u"lbl预览行数", lbl预览行数},
      {u"txt预览行数", txt预览行数},
      {u"cmd恢复默认预览行数", cmd恢复默认预览行数},
      {u"Frame更新", Frame更新},
      {u"Frame自动检查更新", Frame自动检查更新, u"optInterval"},
      {u"Slider灵敏度", Slider灵敏度},
      {u"lbl灵敏度", lbl灵敏度},
      {u"cmd检查更新", cmd检查更新},
      {u"Frame自动隐藏搜索框", Frame自动隐藏搜索框, u"optAutoHideSearchDlg"},
      {u"Frame默认搜索位置", Frame默认搜索位置, u"opt默认搜索位置"},
      {u"Frame定位选项", Frame定位选项},
      {u"chk定位时将代码窗口最大化", chk定位时将代码窗口最大化},
      {u"TextXsl", TextXsl},
      {u"cmd应用过滤器", cmd应用过滤器},
      {u"cmd重置过滤器", cmd重置过滤器},
      {u"cmd过滤器帮助", cmd过滤器帮助},
      {u"Frame选择语言", Frame选择语言},
      {u"Combo语言", Combo语言},
      {u"cmd确定", cmd确定},
      {u"cmd取消", cmd取消},
  };
  PlaceRows(controls, rows);
}

}  // namespace quorvane

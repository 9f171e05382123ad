#include "windows/dialogs/OptionsView.h"

#include "addin/dialogs/frmOption.h"
#include "windows/controls/ButtonView.h"
#include "windows/controls/ComboView.h"
#include "windows/controls/EditView.h"
#include "windows/controls/FrameView.h"
#include "windows/controls/LabelView.h"
#include "windows/controls/SliderView.h"
#include "windows/controls/TabStripView.h"
#include "windows/dialogs/KeyEditorView.h"

namespace quorvane::windows {

namespace {

constexpr int kGap = 4;
constexpr int kWideGap = 7;
constexpr int kNumberColumns = 7;
constexpr int kEditorColumns = 76;
constexpr int kEditorLines = 16;

}  // namespace

OptionsView::OptionsView(frmOption& form, HWND parent) : DialogView(form, parent), form_(form) {
  auto& tabs = Enter<TabStripView>(form_.SSTab设定, Handle());
  tabs_ = &tabs;
  for (std::int16_t i = 0; i < form_.SSTab设定->Tabs(); ++i) SetTabGround(tabs.Page(i));
  const auto fill = [&](std::int16_t tab, std::unique_ptr<Placeable> (OptionsView::*make)(HWND)) {
    tabs.SetLayout(tab, (this->*make)(tabs.Page(tab)));
  };
  fill(OptionControls::kGeneralTab, &OptionsView::MakeGeneralTab);
  fill(OptionControls::kFilterTab, &OptionsView::MakeFilterTab);
  fill(OptionControls::kHotkeyTab, &OptionsView::MakeHotkeyTab);
  fill(OptionControls::kLanguageTab, &OptionsView::MakeLanguageTab);
  auto all = MakeColumn(Units().Down(kWideGap));
  all->Add(tabs, {.Stretch = 1});
  all->Add(MakeButtons());
  SetLayout(std::move(all), *form_.SSTab设定);
}

OptionsView::~OptionsView() = default;

bool OptionsView::TakeKey(const MSG& message) {
  return keys_->Box().TakeKey(message) || tabs_->TakeKey(message) || DialogView::TakeKey(message);
}

std::unique_ptr<Placeable> OptionsView::MakePreviewFrame(HWND page) {
  auto& box = Enter<FrameView>(form_.Frame代码预览, page);
  auto row = MakeRow(Units().Across(kGap));
  row->Add(Enter<LabelView>(form_.lbl预览行数, page), {.StaysSmall = true});
  row->Add(Enter<EditView>(form_.txt预览行数, page, kNumberColumns), {.StaysSmall = true});
  row->AddStretch();
  row->Add(Enter<ButtonView>(form_.cmd恢复默认预览行数, page), {.StaysSmall = true});
  return box.Around(std::move(row));
}

std::unique_ptr<Placeable> OptionsView::MakeUpdateFrame(HWND page) {
  auto& box = Enter<FrameView>(form_.Frame更新, page);
  auto column = MakeColumn(Units().Down(kGap));
  column->Add(EnterChoices(form_.Frame自动检查更新, page));
  auto& words = Enter<LabelView>(form_.lbl灵敏度, page);
  column->Add(words);
  column->Add(Enter<SliderView>(form_.Slider灵敏度, page));
  column->AddStretch();
  auto button = MakeRow(0);
  button->AddStretch();
  button->Add(Enter<ButtonView>(form_.cmd检查更新, page));
  column->Add(std::move(button));
  return box.Around(std::move(column));
}

std::unique_ptr<Placeable> OptionsView::MakeGeneralTab(HWND page) {
  auto left = MakeColumn(Units().Down(kGap));
  left->Add(MakePreviewFrame(page));
  auto right = MakeUpdateFrame(page);
  left->Add(EnterChoices(form_.Frame自动隐藏搜索框, page));
  left->Add(EnterChoices(form_.Frame默认搜索位置, page));
  left->Add(EnterChoices(form_.Frame定位选项, page));
  left->AddStretch();
  auto all = MakeRow(Units().Across(kWideGap));
  all->Add(std::move(left), {.Stretch = 1});
  all->Add(std::move(right), {.Stretch = 1});
  return all;
}

std::unique_ptr<Placeable> OptionsView::MakeFilterTab(HWND page) {
  auto all = MakeColumn(Units().Down(kGap));
  all->Add(Enter<EditView>(form_.TextXsl, page, kEditorColumns, kEditorLines), {.Stretch = 1});
  auto buttons = MakeRow(Units().Across(kGap));
  buttons->AddStretch();
  for (const auto& button : {form_.cmd应用过滤器, form_.cmd重置过滤器, form_.cmd过滤器帮助}) {
    buttons->Add(Enter<ButtonView>(button, page));
  }
  all->Add(std::move(buttons));
  return all;
}

std::unique_ptr<Placeable> OptionsView::MakeHotkeyTab(HWND page) {
  keys_ = std::make_unique<KeyEditorView>(form_.ChordTrapControl1, page);
  auto all = MakeColumn(0);
  all->Add(*keys_, {.Stretch = 1});
  return all;
}

std::unique_ptr<Placeable> OptionsView::MakeLanguageTab(HWND page) {
  auto& box = Enter<FrameView>(form_.Frame选择语言, page);
  auto row = MakeRow(0);
  row->Add(Enter<ComboView>(form_.Combo语言, page, ComboView::Kind::ListOnly), {.StaysSmall = true});
  row->AddStretch();
  auto all = MakeColumn(0);
  all->Add(box.Around(std::move(row)));
  all->AddStretch();
  return all;
}

std::unique_ptr<Placeable> OptionsView::MakeButtons() {
  auto buttons = MakeRow(Units().Across(kGap));
  buttons->AddStretch();
  for (const auto& button : {form_.cmd确定, form_.cmd取消}) buttons->Add(Enter<ButtonView>(button, Handle()));
  return buttons;
}

}  // namespace quorvane::windows

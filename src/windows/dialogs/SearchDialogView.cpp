#include "windows/dialogs/SearchDialogView.h"

#include "addin/dialogs/frmSearchDialog.h"
#include "windows/controls/ButtonView.h"
#include "windows/controls/ComboView.h"
#include "windows/controls/LabelView.h"
#include "windows/controls/StatusView.h"

namespace quorvane::windows {

namespace {

constexpr int kGap = 4;
constexpr int kWideGap = 7;

}  // namespace

SearchDialogView::SearchDialogView(frmSearchDialog& form, HWND parent) : DialogView(form, parent), form_(form) {
  auto left = MakeColumn(Units().Down(kGap));
  left->Add(MakeTexts());
  left->Add(MakeFrames(), {.Stretch = 1});
  auto all = MakeRow(Units().Across(kWideGap));
  all->Add(std::move(left), {.Stretch = 1});
  all->Add(MakeButtons());
  EnterMenu(*form_.mnu快捷菜单);
  SetLayout(std::move(all), *form_.cmbSearch);
}

std::unique_ptr<Placeable> SearchDialogView::MakeTexts() {
  auto grid = std::make_unique<Grid>(Units().Across(kGap), Units().Down(kGap));
  const auto line = [&](const std::shared_ptr<forms::Label>& label, const std::shared_ptr<forms::ComboBox>& combo) {
    auto& words = Enter<LabelView>(label, Handle());
    auto& box = Enter<ComboView>(combo, Handle(), ComboView::Kind::Editable);
    grid->AddRow({&words, &box});
  };
  line(form_.lblMatch, form_.cmbSearch);
  line(form_.lblReplace, form_.cmbReplace);
  return grid;
}

std::unique_ptr<Placeable> SearchDialogView::MakeFrames() {
  auto frames = MakeRow(Units().Across(kGap));
  frames->Add(EnterChoices(form_.frameArea, Handle()));
  frames->Add(EnterChoices(form_.frameMode, Handle()));
  frames->Add(EnterChoices(form_.frameOption, Handle()), {.Stretch = 1});
  auto all = MakeColumn(Units().Down(kGap));
  all->Add(std::move(frames), {.Stretch = 1});
  all->Add(Enter<StatusView>(form_.lblCurModule, Handle()));
  return all;
}

std::unique_ptr<Placeable> SearchDialogView::MakeButtons() {
  auto column = MakeColumn(Units().Down(kGap));
  for (const auto& button : {form_.cmdSearch, form_.cmdReplace, form_.cmdCancel}) {
    column->Add(Enter<ButtonView>(button, Handle()));
  }
  return column;
}

}  // namespace quorvane::windows

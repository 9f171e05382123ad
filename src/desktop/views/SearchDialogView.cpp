#include "desktop/views/SearchDialogView.h"

#include <QGridLayout>
#include <QHBoxLayout>

#include "addin/dialogs/frmSearchDialog.h"
#include "desktop/views/ButtonView.h"
#include "desktop/views/ComboView.h"
#include "desktop/views/LabelView.h"
#include "desktop/views/StatusLabel.h"

namespace quorvane::desktop {

namespace {

constexpr int kButtonWidth = 96;

}  // namespace

SearchDialogView::SearchDialogView(frmSearchDialog& form, QWidget* parent) : DialogView(form, parent), form_(form) {
  auto* layout = new QHBoxLayout(this);
  auto* left = new QVBoxLayout;
  left->addLayout(MakeTexts());
  left->addLayout(MakeFrames());
  layout->addLayout(left);
  layout->addLayout(MakeButtons());
  EnterMenu(*form_.mnu快捷菜单);
  setFocusProxy(WidgetOf(*form_.cmbSearch));
}

QLayout* SearchDialogView::MakeTexts() {
  auto* grid = new QGridLayout;
  const auto line = [&](int row, const std::shared_ptr<forms::Label>& label,
                        const std::shared_ptr<forms::ComboBox>& combo) {
    auto* words = Enter(label, new LabelView(*label, this));
    auto* box = Enter(combo, new ComboView(*combo, ComboView::Kind::Editable, this));
    words->setBuddy(box);
    grid->addWidget(words, row, 0);
    grid->addWidget(box, row, 1);
  };
  line(0, form_.lblMatch, form_.cmbSearch);
  line(1, form_.lblReplace, form_.cmbReplace);
  grid->setColumnStretch(1, 1);
  return grid;
}

QLayout* SearchDialogView::MakeFrames() {
  auto* grid = new QGridLayout;
  grid->addWidget(EnterChoices(form_.frameArea, this), 0, 0);
  grid->addWidget(EnterChoices(form_.frameMode, this), 0, 1);
  grid->addWidget(EnterChoices(form_.frameOption, this), 0, 2);
  grid->addWidget(Enter(form_.lblCurModule, new StatusLabel(form_.lblCurModule, this)), 1, 1, 1, 2);
  grid->setRowStretch(0, 1);
  return grid;
}

QLayout* SearchDialogView::MakeButtons() {
  auto* column = new QVBoxLayout;
  for (const auto& button : {form_.cmdSearch, form_.cmdReplace, form_.cmdCancel}) {
    auto* shown = Enter(button, new ButtonView(*button, this));
    shown->setMinimumWidth(kButtonWidth);
    shown->setDefault(button == form_.DefaultButton());
    column->addWidget(shown);
  }
  column->addStretch();
  return column;
}

}  // namespace quorvane::desktop

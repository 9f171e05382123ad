#include "desktop/dialogs/SearchDialogView.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <utility>

#include "addin/core/ErrorManager.h"
#include "addin/dialogs/frmSearchDialog.h"
#include "addin/settings/GlobalSetting.h"
#include "desktop/controls/ButtonView.h"
#include "desktop/controls/ComboView.h"
#include "desktop/controls/LabelView.h"
#include "desktop/controls/StatusLabel.h"
#include "desktop/platform/Texts.h"
#include "platform/Platform.h"
#include "platform/RegExp.h"

namespace quorvane::desktop {

namespace {

constexpr int kButtonWidth = 96;
constexpr int kHintSize = 14;

/// A run with a regular expression that is none would empty the list before it fails.
void CheckPattern(const GlobalSetting& setting) {
  if (setting.menumMode != gsRegular) return;
  const auto regExp = ThePlatform().NewRegExp();
  regExp->Pattern = setting.mstrSearchStr;
  regExp->Test({});
}

}  // namespace

SearchDialogView::SearchDialogView(frmSearchDialog& form, Tell tell, QWidget* parent)
    : DialogView(form, parent), form_(form), tell_(std::move(tell)) {
  auto* layout = new QHBoxLayout(this);
  auto* left = new QVBoxLayout;
  left->addLayout(MakeTexts());
  left->addLayout(MakeFrames());
  layout->addLayout(left);
  layout->addLayout(MakeButtons());
  EnterMenu(*form_.mnu快捷菜单);
  setFocusProxy(WidgetOf(*form_.cmbSearch));
  find_ = dynamic_cast<ComboView*>(WidgetOf(*form_.cmbSearch));
  Listen();
  FollowHint();
}

void SearchDialogView::Listen() {
  const auto hold = [this](bool& held) { HoldBack(held); };
  listening_.push_back(form_.cmdSearch->Pressing.Subscribe(hold));
  listening_.push_back(form_.cmdReplace->Pressing.Subscribe(hold));
  listening_.push_back(form_.cmbSearch->Change.Subscribe([this] { status_->SetNote({}); }));
  listening_.push_back(form_.cmbReplace->Changed.Subscribe([this] { FollowHint(); }));
  listening_.push_back(form_.chkWholeWord->Changed.Subscribe([this] { FollowHint(); }));  // named by the method
  listening_.push_back(form_.SearchEnded.Subscribe([this](std::int32_t matches) { SearchEnded(matches); }));
  listening_.push_back(form_.ReplaceEnded.Subscribe(
      [this](std::int32_t places, std::int32_t modules) { ReplaceEnded(places, modules); }));
}

void SearchDialogView::HoldBack(bool& held) {
  status_->SetNote({});
  try {
    CheckPattern(form_.Setting());
  } catch (...) {
    held = true;
    ShowHandledError();
  }
}

void SearchDialogView::changeEvent(QEvent* event) {
  DialogView::changeEvent(event);
  if (event->type() != QEvent::LanguageChange || hint_ == nullptr) return;
  FollowHint();
  if (!status_->Note().isEmpty()) status_->SetNote(Texts::OfAddIn()(Text::NothingFound));
}

/// What is typed next is another search.
void SearchDialogView::SearchEnded(std::int32_t matches) {
  const QString words = matches == 0 ? Texts::OfAddIn()(Text::NothingFound) : QString();
  status_->SetNote(words);
  if (matches == 0 && !form_.Visible()) tell_(words);
  if (form_.ActiveControl() == form_.cmbSearch) find_->lineEdit()->selectAll();
}

void SearchDialogView::ReplaceEnded(std::int32_t places, std::int32_t modules) const {
  const Texts texts = Texts::OfAddIn();
  tell_(places == 0
            ? texts(Text::ReplacedNothing)
            : texts(Text::Replaced).arg(texts.Counted(Text::Places, places), texts.Counted(Text::Modules, modules)));
}

void SearchDialogView::FollowHint() {
  const bool regular = form_.Setting().menumMode == gsRegular;
  const QString words = Texts::OfAddIn()(regular ? Text::CommentsToo : Text::ReplaceByRegexp);
  hint_->setToolTip(words);
  hint_->setAccessibleName(words);
  hint_->setVisible(!form_.cmbReplace->Text().empty());
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
  QWidget* options = EnterChoices(form_.frameOption, this);
  grid->addWidget(options, 0, 2);
  AddHint(*options);
  status_ = Enter(form_.lblCurModule, new StatusLabel(form_.lblCurModule, this));
  grid->addWidget(status_, 1, 1, 1, 2);
  grid->setRowStretch(0, 1);
  return grid;
}

/// Beside the box that says what is done with comments; its room is kept, so that nothing moves as it comes.
void SearchDialogView::AddHint(QWidget& choices) {
  auto* column = dynamic_cast<QVBoxLayout*>(choices.layout());
  QWidget* box = WidgetOf(*form_.chkIgnoreComment);
  const int place = column->indexOf(box);
  column->removeWidget(box);
  hint_ = new QLabel(&choices);
  hint_->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(kHintSize));
  QSizePolicy keep = hint_->sizePolicy();
  keep.setRetainSizeWhenHidden(true);
  hint_->setSizePolicy(keep);
  auto* row = new QHBoxLayout;
  row->addWidget(box);
  row->addWidget(hint_);
  row->addStretch();
  column->insertLayout(place, row);
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

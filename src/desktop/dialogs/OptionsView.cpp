#include "desktop/dialogs/OptionsView.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>

#include "addin/core/Globals.h"
#include "addin/dialogs/frmOption.h"
#include "addin/settings/GlobalSetting.h"
#include "base/FlagScope.h"
#include "desktop/controls/ButtonView.h"
#include "desktop/controls/ComboView.h"
#include "desktop/controls/ControlFollow.h"
#include "desktop/controls/FrameView.h"
#include "desktop/controls/LabelView.h"
#include "desktop/controls/LineView.h"
#include "desktop/controls/MemoView.h"
#include "desktop/controls/SliderView.h"
#include "desktop/dialogs/KeyEditorView.h"
#include "desktop/dialogs/StylesheetCheck.h"
#include "desktop/dialogs/XmlHighlighter.h"
#include "desktop/platform/QtText.h"
#include "desktop/platform/Texts.h"
#include "desktop/platform/ToldOnce.h"

namespace quorvane::desktop {

namespace {

constexpr int kNumberWidth = 70;
constexpr QSize kEditorSize(620, 300);
constexpr int kButtonWidth = 96;

}  // namespace

OptionsView::OptionsView(frmOption& form, QWidget* parent)
    : DialogView(form, parent), form_(form), tabs_(new QTabWidget(this)) {
  auto* layout = new QVBoxLayout(this);
  MakeTabs();
  layout->addWidget(tabs_);
  layout->addLayout(MakeButtons());
  setFocusProxy(tabs_);
}

void OptionsView::MakeTabs() {
  Enter(form_.SSTab设定, tabs_);
  for (QWidget* tab : {MakeGeneralTab(), MakeFilterTab(), MakeHotkeyTab(), MakeLanguageTab()}) {
    tabs_->addTab(tab, QString());
  }
  connect(tabs_, &QTabWidget::currentChanged, this, [this](int index) {
    if (!busy_) form_.SSTab设定->Pick(static_cast<std::int16_t>(index));
  });
  tabsChanged_ = form_.SSTab设定->Changed.Subscribe([this] { FollowTabs(); });
  FollowTabs();
}

void OptionsView::FollowTabs() {
  const FlagScope busy(busy_);
  const forms::TabStrip& strip = *form_.SSTab设定;
  for (std::int16_t i = 0; i < strip.Tabs(); ++i) tabs_->setTabText(i, ToQString(strip.TabCaption(i)));
  WidgetOf(*form_.TextXsl)->setAccessibleName(ToQString(strip.TabCaption(OptionControls::kFilterTab)));
  tabs_->setCurrentIndex(strip.Tab());
  FollowControl(*tabs_, strip);
}

QWidget* OptionsView::MakePreviewFrame(QWidget* parent) {
  auto* box = Enter(form_.Frame代码预览, new FrameView(*form_.Frame代码预览, parent));
  auto* layout = new QHBoxLayout(box);
  layout->addWidget(Enter(form_.lbl预览行数, new LabelView(*form_.lbl预览行数, box)));
  auto* lines = Enter(form_.txt预览行数, new LineView(*form_.txt预览行数, box));
  lines->setMaximumWidth(kNumberWidth);
  layout->addWidget(lines);
  layout->addStretch();
  layout->addWidget(Enter(form_.cmd恢复默认预览行数, new ButtonView(*form_.cmd恢复默认预览行数, box)));
  return box;
}

QWidget* OptionsView::MakeUpdateFrame(QWidget* parent) {
  auto* box = Enter(form_.Frame更新, new FrameView(*form_.Frame更新, parent));
  auto* layout = new QVBoxLayout(box);
  layout->addWidget(EnterChoices(form_.Frame自动检查更新, box));
  auto* words = Enter(form_.lbl灵敏度, new LabelView(*form_.lbl灵敏度, box));
  layout->addWidget(words);
  layout->addWidget(Enter(form_.Slider灵敏度, new SliderView(*form_.Slider灵敏度, box)));
  layout->addStretch();
  layout->addWidget(Enter(form_.cmd检查更新, new ButtonView(*form_.cmd检查更新, box)), 0, Qt::AlignRight);
  return box;
}

QWidget* OptionsView::MakeGeneralTab() {
  auto* tab = new QWidget;
  auto* grid = new QGridLayout(tab);
  grid->addWidget(MakePreviewFrame(tab), 0, 0);
  grid->addWidget(MakeUpdateFrame(tab), 0, 1, 4, 1);
  grid->addWidget(EnterChoices(form_.Frame自动隐藏搜索框, tab), 1, 0);
  grid->addWidget(EnterChoices(form_.Frame默认搜索位置, tab), 2, 0);
  grid->addWidget(EnterChoices(form_.Frame定位选项, tab), 3, 0);
  grid->setRowStretch(4, 1);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(1, 1);
  return tab;
}

QWidget* OptionsView::MakeFilterTab() {
  auto* tab = new QWidget;
  auto* layout = new QVBoxLayout(tab);
  auto* editor = Enter(form_.TextXsl, new MemoView(*form_.TextXsl, tab));
  editor->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  editor->setLineWrapMode(QPlainTextEdit::NoWrap);
  editor->setMinimumSize(kEditorSize);
  editor->setTabChangesFocus(true);
  new XmlHighlighter(editor->document(), palette().color(QPalette::Base).lightness() < 128);
  layout->addWidget(editor);
  auto* note = new QLabel(tab);
  layout->addWidget(note);
  check_ = new StylesheetCheck(*editor, *note, this);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const auto& button : {form_.cmd应用过滤器, form_.cmd重置过滤器, form_.cmd过滤器帮助}) {
    auto* shown = Enter(button, new ButtonView(*button, tab));
    if (button == form_.cmd应用过滤器) AskBefore(*shown);
    buttons->addWidget(shown);
  }
  layout->addLayout(buttons);
  return tab;
}

QWidget* OptionsView::MakeHotkeyTab() {
  keys_ = new KeyEditorView(form_.ChordTrapControl1, nullptr);
  return keys_;
}

QWidget* OptionsView::MakeLanguageTab() {
  auto* tab = new QWidget;
  auto* layout = new QVBoxLayout(tab);
  auto* box = Enter(form_.Frame选择语言, new FrameView(*form_.Frame选择语言, tab));
  auto* inner = new QHBoxLayout(box);
  auto* combo = Enter(form_.Combo语言, new ComboView(*form_.Combo语言, ComboView::Kind::ListOnly, box));
  combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  inner->addWidget(combo);
  inner->addStretch();
  layout->addWidget(box);
  layout->addStretch();
  return tab;
}

QLayout* OptionsView::MakeButtons() {
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const auto& button : {form_.cmd确定, form_.cmd取消}) {
    auto* shown = Enter(button, new ButtonView(*button, this));
    shown->setMinimumWidth(kButtonWidth);
    if (button == form_.cmd确定) AskBefore(*shown);
    buttons->addWidget(shown);
  }
  return buttons;
}

void OptionsView::AskBefore(ButtonView& button) {
  button.Press = [this, press = button.Press] {
    if (!MayTake()) return;
    const ToldOnce once;  // each tab makes its lines anew, and each would tell why it cannot
    press();
  };
}

bool OptionsView::MayTake() {
  if (form_.TextXsl->Text() == Globals::gobjSetting->XSL()) return true;
  const QString fault = check_->Fault();
  if (fault.isEmpty()) return true;
  const Texts texts = Texts::OfAddIn();
  tabs_->setCurrentIndex(OptionControls::kFilterTab);
  QMessageBox box(QMessageBox::Warning, windowTitle(), texts(Text::SheetQuestion).arg(fault), QMessageBox::Cancel,
                  this);
  box.setTextFormat(Qt::PlainText);
  box.addButton(QMessageBox::Apply)->setText(texts(Text::SheetUse));
  box.setDefaultButton(QMessageBox::Cancel);
  return box.exec() == QMessageBox::Apply;
}

}  // namespace quorvane::desktop

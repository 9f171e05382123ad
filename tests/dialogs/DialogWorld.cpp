#include "DialogWorld.h"

#include "addin/connect/Updater.h"
#include "addin/dialogs/RegisterDialogs.h"
#include "platform/forms/Forms.h"
#include "platform/forms/OwnerDrawList.h"
#include "platform/forms/Screen.h"

namespace quorvane::test {

std::string Captions(forms::Dialog& form) {
  std::u16string all = form.Caption();
  for (const auto& control : form.Controls().All()) {
    if (const auto* captioned = dynamic_cast<const forms::CaptionedControl*>(control.get())) {
      all += u"|" + captioned->Caption() + captioned->ToolTipText();
    } else if (const auto* label = dynamic_cast<const forms::Label*>(control.get())) {
      all += u"|" + label->Caption();
    } else if (const auto* menu = dynamic_cast<const forms::Menu*>(control.get())) {
      all += u"|" + menu->Caption();
    }
  }
  return ToUtf8(all);
}

DialogWorld::DialogWorld() {
  OpenGroup(Group{});
  RegisterDialogs();
  forms::TheScreen() = {1000, 800};
  onOpened_ = forms::TheForms().Opened.Subscribe([](forms::Form& form) {
    if (auto* dialog = dynamic_cast<forms::Dialog*>(&form)) {
      dialog->SetWindow(77);
      dialog->SetSize(600, 300);
    }
  });
  PageManager::SetPageFactory([] { return std::make_shared<Page>(); });
  Globals::gobjResultDoc = document;
  Globals::gobjToolWindow = toolWindow;
  Globals::gobjUpdater = std::make_shared<Updater>();
  Globals::gobjPageManager = std::make_shared<PageManager>();
  Globals::gobjPageManager->Setup();
  document->Setup();
}

DialogWorld::~DialogWorld() {
  while (forms::TheForms().Count() > 0) forms::TheForms().Item(0)->Unload();
  forms::TheForms().Forget();
  if (Globals::gobjPageManager) Globals::gobjPageManager->TearDown();
  document->TearDown();
  PageManager::SetPageFactory(nullptr);
  forms::TheScreen() = {};
}

void DialogWorld::OpenGroup(const Group& group) {
  Open(group);
  windows.Windows = {{500, {u"wndclass_desked_gsk", host->MainWindow()->Caption(), 0, {}}}};
  platform.windows = &windows;
}

frmSearchDialog& DialogWorld::Dialog() {
  return dynamic_cast<frmSearchDialog&>(*forms::TheForms().Instance(u"frmSearchDialog"));
}

void DialogWorld::Type(forms::ComboBox& combo, const std::u16string& text) {
  combo.Edit(text, static_cast<std::int32_t>(text.size()), 0);
}

std::string DialogWorld::Rows() const {
  const auto active = std::dynamic_pointer_cast<Page>(Globals::gobjPageManager->ActivePage());
  if (!active) return "no page";
  std::string rows = ToUtf8(active->mstrKey);
  for (std::int32_t i = 0; i < active->mlstResultList->ListCount(); ++i) {
    const std::u16string row = active->mlstResultList->List(i);
    rows += "\n" + ToUtf8(std::u16string_view(row).substr(row.find(u']') + 1));
  }
  return rows;
}

std::shared_ptr<Page> DialogWorld::ActivePage() {
  return std::dynamic_pointer_cast<Page>(Globals::gobjPageManager->ActivePage());
}

std::string DialogWorld::Condition() {
  const GlobalSetting& s = Setting();
  std::string text = ToUtf8(s.mstrSearchStr) + "|" + ToUtf8(s.mstrReplaceStr);
  for (const int value : {int{s.menumArea}, int{s.menumMode}, int{s.mblnMatchCase}, int{s.mblnWholeWord},
                          int{s.mblnRegSingleLine}, int{s.menumIgnoreComment}}) {
    text += "|" + std::to_string(value);
  }
  return text;
}

std::string DialogWorld::Commands() {
  frmSearchDialog& d = Dialog();
  std::string text;
  if (d.cmdSearch->Enabled()) text += "search ";
  if (d.cmdReplace->Enabled()) text += "replace ";
  if (d.cmdCancel->Visible()) text += d.cmdCancel->Enabled() ? "cancel " : "dead-cancel ";
  if (d.cmbSearch->Enabled()) text += "edit ";
  return text + "[" + ToUtf8(d.lblCurModule->Caption()) + "]" + (d.Visible() ? "" : " hidden");
}

}  // namespace quorvane::test

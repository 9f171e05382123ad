#include "addin/results/PageManager.h"

#include <utility>

#include "addin/core/Globals.h"
#include "addin/core/Guarded.h"
#include "addin/core/LanguageManager.h"
#include "addin/results/IResultListDoc.h"
#include "addin/results/IResultPage.h"
#include "base/Checked.h"
#include "base/Text.h"
#include "platform/forms/MouseButton.h"
#include "platform/forms/Tab.h"
#include "platform/forms/TabControl.h"

namespace quorvane {

namespace {

constexpr std::int32_t kNoIcon = -1;

PageManager::PageFactory& ThePageFactory() {
  static PageManager::PageFactory factory;
  return factory;
}

std::shared_ptr<IResultPage> NewPage() {
  if (!ThePageFactory()) RaiseError(ErrorNumber::CannotCreateObject, u"Cannot create a result page");
  return ThePageFactory()();
}

}  // namespace

PageManager::PageManager() : mcolPages(std::make_shared<PageCollection>()) {
  onItemRemoved_ = mcolPages->ItemRemoved.Subscribe([this](const PageCollection::Index& key, bool bPassive) {
    Guarded([&] { mcolPages_ItemRemoved(key, bPassive); });
  });
}

PageManager::~PageManager() = default;

void PageManager::SetPageFactory(PageFactory factory) {
  ThePageFactory() = std::move(factory);
}

bool PageManager::BarEnabled() const {
  return Deref(mobjTabCtrl).Enabled();
}

void PageManager::SetBarEnabled(bool enabled) {
  Deref(mobjTabCtrl).SetEnabled(enabled);
  mobjTabCtrl->Item(std::u16string(kAddNewTab))->SetCanClose(false);
}

std::shared_ptr<IResultPage> PageManager::ActivePage() {
  if (mcolPages->Count() == 0) return nullptr;
  const auto selectedKey = [this] { return Deref(Deref(mobjTabCtrl).SelectedTab()).Key(); };
  if (selectedKey() == kAddNewTab) SelectLastTab();
  return mcolPages->Item(selectedKey());
}

std::shared_ptr<IResultPage> PageManager::Add(const std::u16string& name, bool CanClose) {
  forms::TabControl& bar = Deref(mobjTabCtrl);
  const std::shared_ptr<IResultPage> page = NewPage();
  mcolPages->Add(page, name);
  const std::shared_ptr<forms::Tab> tab = bar.Add(name, kAddNewTab, name, kNoIcon);
  page->Setup(tab);
  tab->Select();
  tab->SetCanClose(CanClose);
  TabChange.Raise();
  return page;
}

void PageManager::AddNewPage() {
  pagesMade_ = Checked16(pagesMade_ + 1);
  Add(Globals::Language().GetString(StringId::NameOfPages) + ToText(pagesMade_), true);
}

void PageManager::SelectLastTab() {
  const std::int32_t last = mcolPages->Count();
  if (last == 0) return;
  // By key: a page whose tab has gone must fail here, not select the plus tab, from which readers lead back here.
  Deref(mobjTabCtrl).Item(mcolPages->Item(last)->Key())->Select();
  TabChange.Raise();
}

void PageManager::Setup() {
  mobjTabCtrl = Deref(Globals::gobjResultDoc).TabControl();
  Listen();
}

void PageManager::TearDown() {
  mcolPages->RemoveAll();
  onBar_.clear();
  mobjTabCtrl.reset();
}

void PageManager::Listen() {
  forms::TabControl& bar = Deref(mobjTabCtrl);
  onBar_.push_back(bar.TabSelected.Subscribe([this](const auto&) { Guarded([&] { mobjTabCtrl_TabSelected(); }); }));
  onBar_.push_back(bar.TabMouseDown.Subscribe([this](const auto& tab, std::int16_t button, auto, auto, auto) {
    Guarded([&] { mobjTabCtrl_TabMouseDown(*tab, button); });
  }));
  onBar_.push_back(
      bar.TabDoubleClick.Subscribe([this](const auto& tab) { Guarded([&] { mobjTabCtrl_TabDoubleClick(*tab); }); }));
  onBar_.push_back(
      bar.TabClose.Subscribe([this](const auto& tab, bool&) { Guarded([&] { mobjTabCtrl_TabClose(*tab); }); }));
}

void PageManager::mobjTabCtrl_TabSelected() {
  if (const auto page = ActivePage()) Deref(page->Panel()).SetVisible(true);
  TabChange.Raise();
}

void PageManager::mobjTabCtrl_TabMouseDown(const forms::Tab& tab, std::int16_t button) {
  if (button == forms::kLeftButton && tab.Key() == kAddNewTab) AddNewPage();
  if (button == forms::kMiddleButton && tab.CanClose()) mcolPages->Remove(tab.Key());
}

void PageManager::mobjTabCtrl_TabDoubleClick(const forms::Tab& tab) {
  if (tab.CanClose()) mcolPages->Remove(tab.Key());
}

void PageManager::mobjTabCtrl_TabClose(const forms::Tab& tab) {
  mcolPages->Remove(tab.Key(), true);
}

void PageManager::mcolPages_ItemRemoved(const PageCollection::Index& key, bool bPassive) {
  if (!bPassive) Deref(mobjTabCtrl).Remove(key);
}

}  // namespace quorvane

#include "addin/results/FilterManager.h"

#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/Guarded.h"
#include "addin/results/IListPage.h"
#include "addin/results/MatchField.h"
#include "addin/results/MatchReader.h"
#include "addin/search/IPage.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/ResultCollection.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Error.h"
#include "base/Text.h"
#include "platform/Platform.h"
#include "platform/XmlDocument.h"

namespace quorvane {

namespace {

void WriteAttributes(XmlElement& item, const PositionInfo& pi) {
  MatchReader match(pi);
  for (const MatchFieldInfo& field : MatchFields()) {
    item.SetAttribute(field.Name, field.IsNumber() ? ToText(field.Number(match)) : field.Text(match));
  }
}

std::int32_t ToNumber(const std::u16string& text) {
  try {
    return std::stoi(ToUtf8(text));
  } catch (const std::exception&) {
    RaiseError(ErrorNumber::TypeMismatch);
  }
}

}  // namespace

FilterManager::FilterManager()
    : mobjSetting(Globals::gobjSetting),
      mobjXsl(ThePlatform().NewXmlDocument()),
      mobjDoc(ThePlatform().NewXmlDocument()) {
  Clear();
  onPropertyChange_ = Deref(mobjSetting).PropertyChange.Subscribe([this](const std::u16string& propName) {
    mobjSetting_PropertyChange(propName);
  });
}

FilterManager::~FilterManager() = default;

XmlDocument& FilterManager::StyleSheet() {
  mobjXsl->LoadXml(Deref(mobjSetting).XSL());
  return *mobjXsl;
}

void FilterManager::Save(const std::u16string& filename) const {
  mobjDoc->Save(filename);
}

std::shared_ptr<XmlElement> FilterManager::Item(std::int32_t id) const {
  if (id < 1) RaiseError(ErrorNumber::SubscriptOutOfRange);
  return Deref(mobjDoc->DocumentElement()).Child(static_cast<std::size_t>(id) - 1);
}

void FilterManager::Clear() {
  const auto root = mobjDoc->CreateElement("SearchResult");
  mobjDoc->SetDocumentElement(*root);
}

void FilterManager::Setup(IPage& p) {
  mobjParent = &p;
  mcolResult = p.Result();
  ResultCollection& results = Deref(mcolResult);
  onAdd_ = results.OnAdd.Subscribe([this](const std::shared_ptr<PositionInfo>& pi) { mcolResult_OnAdd(*pi); });
  onClear_ = results.OnClear.Subscribe([this] { mcolResult_OnClear(); });
}

void FilterManager::TearDown() {
  onAdd_.Reset();
  onClear_.Reset();
  mobjParent = nullptr;
  mcolResult.reset();
}

void FilterManager::Refresh(IListPage& p) {
  p.ClearList();
  if (!StyleSheet().DocumentElement()) return;
  const auto root = mobjDoc->DocumentElement();
  for (std::size_t i = 0; i < Deref(root).ChildCount(); ++i) {
    const auto item = root->Child(i);
    const std::u16string line = item->TransformNode(StyleSheet());
    p.AddListItem(line, ToNumber(item->GetAttribute("ID")));
  }
}

void FilterManager::mcolResult_OnAdd(const PositionInfo& pi) {
  try {
    const auto item = mobjDoc->CreateElement("MatchItem");
    try {
      WriteAttributes(*item, pi);
    } catch (...) {
      // Without this element those of later matches would stand at wrong numbers. It ends with its last attribute.
      Deref(mobjDoc->DocumentElement()).AppendChild(*item);
      throw;
    }
    Deref(mobjDoc->DocumentElement()).AppendChild(*item);
    const std::u16string line = item->TransformNode(StyleSheet());
    OnAdd.Raise(line, pi.mlngID);
  } catch (...) {
    // A stylesheet that cannot run costs the line, not the match: the element stays and the search goes on.
  }
}

void FilterManager::mcolResult_OnClear() {
  Guarded([this] {
    Clear();
    OnClear.Raise();
  });
}

void FilterManager::mobjSetting_PropertyChange(const std::u16string& propName) {
  if (propName == u"XSL") OnRefresh.Raise();
}

}  // namespace quorvane

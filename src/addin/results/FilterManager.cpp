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
#include "platform/Platform.h"
#include "platform/XmlDocument.h"
#include "platform/XmlTable.h"

namespace quorvane {

// Each match becomes one row of the result document, in the order of the matches, so that the number of a match is
// the place of its row. The user's stylesheet makes the line of the list out of it, and does so anew for all
// rows when the stylesheet changes. A match whose attributes or line cannot be made costs itself, never the search.
// invariant: as many rows as matches since the last Clear, an incomplete one included.

namespace {

XmlTableShape DocumentShape() {
  XmlTableShape shape{"SearchResult", "MatchItem", {}};
  for (const MatchFieldInfo& field : MatchFields()) shape.Columns.push_back({field.Name, field.IsNumber()});
  return shape;
}

/// One that fails leaves the fields before it: the matches that follow keep their places.
void Append(XmlTable& document, const PositionInfo& pi) {
  MatchReader match(pi);
  document.BeginRow();
  for (const MatchFieldInfo& field : MatchFields()) {
    field.IsNumber() ? document.AddNumber(field.Number(match)) : document.AddText(field.Text(match));
  }
}

}  // namespace

FilterManager::FilterManager()
    : mobjSetting(Globals::gobjSetting),
      mobjXsl(ThePlatform().NewXmlDocument()),
      mobjDoc(ThePlatform().NewXmlTable(DocumentShape())) {
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

MatchItem FilterManager::Item(std::int32_t id) const {
  if (id < 1 || static_cast<std::size_t>(id) > mobjDoc->RowCount()) RaiseError(ErrorNumber::SubscriptOutOfRange);
  return {*mobjDoc, static_cast<std::size_t>(id) - 1};
}

void FilterManager::Clear() {
  mobjDoc->Clear();
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
  if (StyleSheet().IsEmpty()) return;
  for (std::size_t row = 0; row < mobjDoc->RowCount(); ++row) {
    const MatchItem item(*mobjDoc, row);
    const std::u16string line = item.Transform(StyleSheet());
    p.AddListItem(line, item.Number(MatchField::ID));
  }
}

void FilterManager::mcolResult_OnAdd(const PositionInfo& pi) {
  try {
    Append(*mobjDoc, pi);
    const std::u16string line = mobjDoc->Transform(mobjDoc->RowCount() - 1, StyleSheet());
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

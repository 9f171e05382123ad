#include "addin/results/FilterManager.h"

#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/ObjStat.h"
#include "addin/search/IPage.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/ResultCollection.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Checked.h"
#include "base/Error.h"
#include "base/Text.h"
#include "platform/Platform.h"
#include "platform/XmlDocument.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

void WriteAttributes(XmlElement& item, const PositionInfo& pi) {
  const auto number = [&item](std::string_view name, std::int32_t value) { item.SetAttribute(name, ToText(value)); };
  number("ID", pi.mlngID);
  number("Y1", pi.mlngY1);
  number("Y2", pi.mlngY2);
  number("X1", pi.mlngX1);
  number("X2", pi.mlngX2);
  number("ScreenX1", pi.ScreenX1());
  number("ScreenX2", pi.ScreenX2());
  number("StartPos", pi.StartPos(pi.mlngY1));
  number("EndPos", pi.EndPos(pi.mlngY1));
  item.SetAttribute("MatchStr", pi.MatchStr());
  item.SetAttribute("ComponentName", Deref(pi.component()).Name());
  item.SetAttribute("ProjectName", Deref(pi.project()).Name());
  const std::int32_t relativeStart = pi.RelativeMatchStartPos();
  number("RelativeStartPos", relativeStart);
  // Start and end on one line have the same text before them: it is read once.
  const bool oneLine = pi.mlngY1 == pi.mlngY2;
  number("RelativeEndPos",
         oneLine ? Checked32(std::int64_t{relativeStart} - pi.mlngX1 + pi.mlngX2) : pi.RelativeMatchEndPos());
  item.SetAttribute("ProcName", pi.ProcName());
  item.SetAttribute("ProcType", pi.ProcType());
  item.SetAttribute("Line", pi.line());
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
  ObjStat::AddObject(this);
  Clear();
  onPropertyChange_ = Deref(mobjSetting).PropertyChange.Subscribe([this](const std::u16string& propName) {
    mobjSetting_PropertyChange(propName);
  });
}

FilterManager::~FilterManager() {
  ObjStat::RemoveObject(this);
}

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

void FilterManager::Refresh(IPage& p) {
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
  try {
    Clear();
    OnClear.Raise();
  } catch (...) {
    Deref(Globals::gobjErrorManager).ShowErr();
  }
}

void FilterManager::mobjSetting_PropertyChange(const std::u16string& propName) {
  if (propName == u"XSL") OnRefresh.Raise();
}

}  // namespace quorvane

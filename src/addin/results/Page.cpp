#include "addin/results/Page.h"

#include <utility>

#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/Guarded.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/Utilities.h"
#include "addin/results/FilterManager.h"
#include "addin/results/ICodePreview.h"
#include "addin/results/IResultListDoc.h"
#include "addin/results/ListPainter.h"
#include "addin/search/ConditionSnap.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/ResultCollection.h"
#include "addin/search/TaskManager.h"
#include "base/Error.h"
#include "base/FlagScope.h"
#include "base/KeyCode.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "platform/App.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/forms/Controls.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "platform/forms/Label.h"
#include "platform/forms/MouseButton.h"
#include "platform/forms/OwnerDrawList.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Tab.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

constexpr std::int32_t kSearchBit = 1;

// Texts of the status line.

// Layout, in twips.
constexpr std::int32_t kLabelLeft = 100;
constexpr std::int32_t kLabelTop = 50;
constexpr std::int32_t kLabelHeight = 285;
constexpr std::int32_t kLabelSides = 955;
constexpr std::int32_t kListTop = 285;
constexpr std::int32_t kListSides = 300;

IResultListDoc& Doc() {
  return Deref(Globals::gobjResultDoc);
}

/// A visible control of the document.
template <class T>
std::shared_ptr<T> AddControl(std::u16string_view progId, const std::u16string& name) {
  const auto control = std::dynamic_pointer_cast<T>(Doc().Controls().Add(progId, name));
  Deref(control).SetVisible(true);
  return control;
}

void RemoveControl(const std::shared_ptr<forms::Control>& control) {
  Doc().Controls().Remove(Deref(control).Name());
}

}  // namespace

Page::Page() = default;

Page::~Page() = default;

void Page::Setup(const std::shared_ptr<forms::Tab>& theTab) {
  AddControls(Deref(theTab).Key());
  mobjTab = theTab;
  mobjTab->SetPanel(mobjPanel);
  mobjCondSnap = std::make_shared<ConditionSnap>();
  mcolResult = std::make_shared<ResultCollection>();
  mobjTask = std::make_shared<TaskManager>();
  mobjFilter = std::make_shared<FilterManager>();
  mobjListPainter = std::make_shared<ListPainter>();
  mcolResult->Setup(*this);
  mobjTask->Setup(*this);
  mobjFilter->Setup(*this);
  mobjListPainter->Setup(*this);
  Listen();
}

void Page::AddControls(const std::u16string& key) {
  mobjPanel = AddControl<forms::PictureBox>(u"VB.PictureBox", u"mobjPanel" + key);
  mobjLabel = AddControl<forms::Label>(u"VB.Label", u"mobjLabel" + key);
  mobjLabel->SetContainer(mobjPanel);
  mlstResultList = AddControl<forms::OwnerDrawList>(u"ODCboLst6QVN.OwnerDrawComboList", u"mlstResultList" + key);
  mlstResultList->SetContainer(mobjPanel);
}

void Page::Listen() {
  subscriptions_.push_back(
      mobjCondSnap->Named.Subscribe([this](const auto& caption) { Deref(mobjTab).SetCaption(caption); }));
  subscriptions_.push_back(
      mobjFilter->OnAdd.Subscribe([this](const auto& line, std::int32_t id) { mobjFilter_OnAdd(line, id); }));
  subscriptions_.push_back(mobjFilter->OnClear.Subscribe([this] { Guarded([this] { mobjFilter_OnClear(); }); }));
  subscriptions_.push_back(mobjFilter->OnRefresh.Subscribe([this] { Guarded([this] { mobjFilter_OnRefresh(); }); }));
  subscriptions_.push_back(
      mobjTask->TaskBegin.Subscribe([this](std::int32_t taskType) { mobjTask_TaskBegin(taskType); }));
  subscriptions_.push_back(
      mobjTask->TaskDone.Subscribe([this](std::int32_t) { Guarded([this] { mobjTask_TaskDone(); }); }));
  subscriptions_.push_back(
      mobjTask->OnModuleError.Subscribe([this](const PositionInfo& where, const Error& error, bool& goOn) {
        mobjTask_OnModuleError(where, error, goOn);
      }));
  subscriptions_.push_back(mobjPanel->Resize.Subscribe([this] { mobjPanel_Resize(); }));
  const auto mouseDown = [this](std::int16_t button, auto...) { Guarded([&] { MouseDown(button); }); };
  subscriptions_.push_back(mobjLabel->MouseDown.Subscribe(mouseDown));
  subscriptions_.push_back(mlstResultList->MouseDown.Subscribe(mouseDown));
  subscriptions_.push_back(mlstResultList->MouseMove.Subscribe(
      [this](auto, auto, float x, float y) { Guarded([&] { mlstResultList_MouseMove(x, y); }); }));
  subscriptions_.push_back(mlstResultList->KeyDown.Subscribe(
      [this](std::int16_t keyCode, std::int16_t shift) { Guarded([&] { ProcessKeyDown(keyCode, shift); }); }));
  subscriptions_.push_back(mlstResultList->DblClick.Subscribe([this] { Guarded([this] { LocateSelected(); }); }));
}

void Page::TearDown() {
  const auto self = shared_from_this();
  if (mobjTask && mobjTask->Running()) mobjTask->mblnCancel = true;  // it ends at its next yield, in silence
  SkipErrors([this] { RemoveControl(mobjLabel); });
  SkipErrors([this] { RemoveControl(mlstResultList); });
  SkipErrors([this] { RemoveControl(mobjPanel); });
  SkipErrors([this] { Deref(mobjTask).TearDown(); });
  SkipErrors([this] { Deref(mobjFilter).TearDown(); });
  SkipErrors([this] { Deref(mcolResult).TearDown(); });
  SkipErrors([this] { Deref(mobjListPainter).TearDown(); });
  subscriptions_.clear();
  mlstResultList.reset();
  mobjPanel.reset();
  mobjLabel.reset();
  mobjTask.reset();
  mcolResult.reset();
  mobjFilter.reset();
  mobjListPainter.reset();
  mobjCondSnap.reset();
  lastPreviewed_.reset();
  failedPreview_.reset();
}

/// The top of an event: its failure is shown and goes no further. The event may close the page.
template <class Body>
void Page::Guarded(Body body) {
  const auto self = shared_from_this();
  quorvane::Guarded(body);
}

WindowHandle Page::ListHWnd() const {
  return Deref(mlstResultList).hWnd();
}

std::shared_ptr<forms::Control> Page::Panel() const {
  return mobjPanel;
}

forms::Controls& Page::Controls() const {
  return Doc().Controls();
}

void Page::AddListItem(const std::u16string& line, std::int32_t id) {
  if (!TrimBlanks(line).empty()) Deref(mlstResultList).AddItem(line, id);
  UpdateStatus();
}

void Page::UpdateStatus() {
  if (!mblnHasResult) return;
  const LanguageManager& language = Globals::Language();
  const std::int32_t matches = Deref(mcolResult).Count();
  Deref(mobjLabel).SetCaption(language.GetString(StringId::StatusModules) + ToText(mcolResult->ModuleCount()) +
                              language.GetString(StringId::StatusMatches) + ToText(matches) +
                              language.GetString(StringId::StatusShown) + ToText(Deref(mlstResultList).ListCount()) +
                              u" " + Deref(mobjCondSnap).Description());
  vbide::Window& toolWindow = Deref(Globals::gobjToolWindow);
  if (!toolWindow.Visible() && matches > 0) toolWindow.SetVisible(true);
  Deref(mobjTab).SetToolTipText(mobjLabel->Caption());
}

void Page::LocateSelected() {
  forms::OwnerDrawList& list = Deref(mlstResultList);
  if (list.ListIndex() < 0) return;
  const std::shared_ptr<PositionInfo> match = Deref(mcolResult).Item(list.ItemData(list.ListIndex()));
  match->Show();
}

void Page::LocateNextResult() {
  if (locatingNext_) return;
  const auto self = shared_from_this();
  const FlagScope way(locatingNext_);
  forms::OwnerDrawList& list = Deref(mlstResultList);
  const std::int32_t next = list.ListIndex() + 1;
  if (next < list.ListCount()) list.SetListIndex(next);
  LocateSelected();
}

void Page::LocatePrevResult() {
  if (locatingPrev_) return;
  const auto self = shared_from_this();
  const FlagScope way(locatingPrev_);
  forms::OwnerDrawList& list = Deref(mlstResultList);
  const std::int32_t previous = list.ListIndex() - 1;
  if (previous >= 0) list.SetListIndex(previous);
  LocateSelected();
}

void Page::ProcessKeyDown(std::int16_t keyCode, std::int16_t) {
  if (keyCode == kKeyEscape) Deref(Globals::gobjToolWindow).SetVisible(false);
  if (keyCode == kKeyEnter) LocateSelected();
}

void Page::Reset() {
  ClearList();
  Deref(mobjLabel).SetCaption({});
  Deref(mobjTab).SetCaption(mobjTab->Key());
  mblnHasResult = false;
  mblnCanRefresh = false;
}

void Page::ClearList() {
  Deref(mlstResultList).Clear();
}

void Page::RefreshResult() {
  const auto self = shared_from_this();
  const std::shared_ptr<TaskManager> task = mobjTask;
  if (Deref(task).Running()) return;  // a hotkey comes through then too, and a run within a run doubles matches
  task->Run(kTaskRepeatSearch);
}

void Page::mobjFilter_OnAdd(const std::u16string& line, std::int32_t id) {
  const auto self = shared_from_this();
  try {
    AddListItem(line, id);
  } catch (...) {
    ShowHandledError();
    UpdateStatus();
  }
}

void Page::mobjFilter_OnClear() {
  ClearList();
  Deref(mobjListPainter).ResetScroll();
  UpdateStatus();
}

void Page::mobjFilter_OnRefresh() {
  Deref(mobjFilter).Refresh(*this);
  UpdateStatus();
}

void Page::mobjTask_TaskBegin(std::int32_t taskType) {
  if ((taskType & kSearchBit) == 0) return;
  mblnHasResult = true;
  mblnCanRefresh = true;
  tooLong_.clear();
}

/// A line with more columns than a place can have costs the rest of its module. The user is told after the search.
void Page::mobjTask_OnModuleError(const PositionInfo& where, const Error& error, bool& goOn) {
  if (!error.Is(ErrorNumber::Overflow)) return;
  const vbide::VBComponent& component = Deref(where.component());
  const std::u16string file = component.FileName();
  tooLong_.push_back(Globals::Language().GetString(StringId::LineTooLong,
                                                   {file.empty() ? component.Name() : file, ToText(where.mlngY1)}));
  goOn = true;
}

void Page::mobjTask_TaskDone() {
  if (tooLong_.empty()) return;
  std::u16string text;
  for (const std::u16string& line : std::exchange(tooLong_, {})) text.append(text.empty() ? u"" : kCrLf).append(line);
  ThePlatform().MessageBoxes().MsgBox(text, kOkOnly, ThePlatform().TheApp().Title);
}

void Page::mobjPanel_Resize() {
  const std::int32_t width = mobjPanel->Width();
  mobjLabel->Move(kLabelLeft, kLabelTop, width - kLabelSides, kLabelHeight);
  mlstResultList->Move(0, kListTop, width, mobjPanel->Height() - kListSides);
}

void Page::MouseDown(std::int16_t button) {
  if (button == forms::kRightButton) Doc().PopupMenu();
}

void Page::mlstResultList_MouseMove(float x, float y) {
  if (!Doc().ShowPreview()) return;
  PreviewIndex(Deref(Globals::gobjUtilities).GetListIndex(ListHWnd(), x, y));
}

void Page::PreviewIndex(std::int32_t index) {
  forms::OwnerDrawList& list = Deref(mlstResultList);
  if (index < 0 || index >= list.ListCount()) return;
  const std::int32_t id = list.ItemData(index);
  if (id > Deref(mcolResult).Count() || id <= 0) return;
  const std::shared_ptr<PositionInfo> pi = mcolResult->Item(id);
  const std::shared_ptr<forms::Form> form = forms::TheForms().Instance(u"frmCodePreview");
  if (pi == lastPreviewed_ && !(list.ListCount() == 1 && !form->Visible())) return;
  if (pi == failedPreview_) return;
  ICodePreview& preview = Deref(std::dynamic_pointer_cast<ICodePreview>(form));
  failedPreview_ = pi;
  preview.Update(pi, Deref(mobjCondSnap));
  failedPreview_.reset();
  preview.UpdatePreviewPos();
  lastPreviewed_ = pi;
}

}  // namespace quorvane

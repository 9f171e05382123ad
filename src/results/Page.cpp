#include "results/Page.h"

#include "base/Error.h"
#include "base/Skip.h"
#include "base/Text.h"
#include "host/Globals.h"
#include "host/Utilities.h"
#include "host/VBIDE.h"
#include "platform/forms/Controls.h"
#include "platform/forms/Form.h"
#include "platform/forms/Forms.h"
#include "platform/forms/Label.h"
#include "platform/forms/OwnerDrawList.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Tab.h"
#include "results/FilterManager.h"
#include "results/ICodePreview.h"
#include "results/IResultListDoc.h"
#include "results/ListPainter.h"
#include "search/ConditionSnap.h"
#include "search/PositionInfo.h"
#include "search/ResultCollection.h"
#include "search/TaskManager.h"
#include "services/ErrorManager.h"
#include "services/LanguageManager.h"
#include "services/ObjStat.h"

namespace quorvane {

namespace {

constexpr std::int16_t kEscape = 27;
constexpr std::int16_t kEnter = 13;
constexpr std::int16_t kRightButton = 2;
constexpr std::int32_t kSearchBit = 1;

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

template <class T>
std::shared_ptr<T> AddControl(std::u16string_view progId, const std::u16string& name) {
  const auto control = std::dynamic_pointer_cast<T>(Doc().Controls().Add(progId, name));
  Deref(control).SetVisible(true);
  return control;
}

void TogglePopup(std::int16_t button) {
  if (button == kRightButton) Doc().PopupMenu();
}

/// True for as long as this lives.
class Under {
 public:
  explicit Under(bool& flag) : flag_(flag) { flag_ = true; }
  ~Under() { flag_ = false; }
  Under(const Under&) = delete;
  Under& operator=(const Under&) = delete;

 private:
  bool& flag_;
};

}  // namespace

Page::Page() {
  ObjStat::AddObject(this);
}

Page::~Page() {
  ObjStat::RemoveObject(this);
}

void Page::Setup(const std::shared_ptr<Tab>& theTab) {
  AddControls();
  mobjTab = theTab;
  Deref(mobjTab).SetPanel(mobjPanel);
  mobjCondSnap = std::make_shared<ConditionSnap>();
  mcolResult = std::make_shared<ResultCollection>();
  mobjTask = std::make_shared<TaskManager>();
  mobjFilter = std::make_shared<FilterManager>();
  mobjListPainter = std::make_shared<ListPainter>();
  mobjCondSnap->Setup(*this);
  mcolResult->Setup(*this);
  mobjTask->Setup(*this);
  mobjFilter->Setup(*this);
  mobjListPainter->Setup(*this);
  Listen();
}

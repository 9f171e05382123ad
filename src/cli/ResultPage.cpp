#include "cli/ResultPage.h"

#include "addin/search/ConditionSnap.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/ResultCollection.h"
#include "base/Error.h"
#include "base/Text.h"
#include "platform/XmlDocument.h"

namespace quorvane::cli {

ResultPage::ResultPage() : result_(std::make_shared<ResultCollection>()), condSnap_(std::make_shared<ConditionSnap>()) {
  condSnap_->Setup(*this);
  result_->Setup(*this);
  mobjTask.Setup(*this);
  mobjFilter.Setup(*this);
  filterAdd_ = mobjFilter.OnAdd.Subscribe([this](const std::u16string& line, std::int32_t id) {
    lastLine_ = id;
    AddListItem(line, id);
  });
  resultAdd_ = result_->OnAdd.Subscribe([this](const std::shared_ptr<PositionInfo>& pi) {
    if (lastLine_ != pi->mlngID) {
      CheckElement(*pi);
      if (firstFailed_ == 0) firstFailed_ = pi->mlngID;
    }
    if (OnMatch) OnMatch(*pi);
  });
}

ResultPage::~ResultPage() {
  mobjTask.TearDown();
  mobjFilter.TearDown();
  result_->TearDown();
  condSnap_->TearDown();
}

void ResultPage::AddListItem(const std::u16string& line, std::int32_t id) {
  if (OnLine && !TrimBlanks(line).empty()) OnLine(line, id);
}

void ResultPage::CheckElement(const PositionInfo& pi) {
  try {
    pi.ScreenX1();
    pi.ScreenX2();
  } catch (const Error&) {
    untold_.insert(pi.mlngID);
    throw;
  }
}

std::int32_t ResultPage::CountOfTold() const {
  return result_->Count() - static_cast<std::int32_t>(untold_.size());
}

void ResultPage::CheckLines() {
  if (firstFailed_ != 0) mobjFilter.Item(firstFailed_)->TransformNode(mobjFilter.StyleSheet());
}

}  // namespace quorvane::cli

#include "cli/ResultPage.h"

#include "addin/search/ConditionSnap.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/ResultCollection.h"
#include "base/Error.h"
#include "base/Text.h"
#include "platform/XmlDocument.h"

namespace quorvane::cli {

ResultPage::ResultPage(bool showsLines)
    : result_(std::make_shared<ResultCollection>()), condSnap_(std::make_shared<ConditionSnap>()) {
  result_->Setup(*this);
  mobjTask.Setup(*this);
  if (showsLines) {
    mobjFilter.emplace();
    mobjFilter->Setup(*this);
    filterAdd_ = mobjFilter->OnAdd.Subscribe([this](const std::u16string& line, std::int32_t id) {
      lastLine_ = id;
      TakeLine(line, id);
    });
  }
  resultAdd_ = result_->OnAdd.Subscribe([this](const std::shared_ptr<PositionInfo>& pi) {
    if (lastLine_ != pi->mlngID) {
      CheckColumns(*pi);
      if (firstFailed_ == 0) firstFailed_ = pi->mlngID;
    }
    if (OnMatch) OnMatch(*pi);
  });
}

ResultPage::~ResultPage() {
  mobjTask.TearDown();
  if (mobjFilter) mobjFilter->TearDown();
  result_->TearDown();
}

void ResultPage::TakeLine(const std::u16string& line, std::int32_t id) {
  if (OnLine && !TrimBlanks(line).empty()) OnLine(line, id);
}

void ResultPage::CheckColumns(const PositionInfo& pi) {
  try {
    pi.CheckScreenColumns();
  } catch (const Error&) {
    ++untold_;
    throw;
  }
}

std::int32_t ResultPage::CountOfTold() const {
  return result_->Count() - untold_;
}

void ResultPage::CheckLines() {
  if (firstFailed_ != 0 && mobjFilter) mobjFilter->Item(firstFailed_).Transform(mobjFilter->StyleSheet());
}

}  // namespace quorvane::cli

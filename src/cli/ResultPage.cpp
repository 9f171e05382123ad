#include "cli/ResultPage.h"

#include "addin/search/ConditionSnap.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/ResultCollection.h"
#include "base/Error.h"
#include "base/Text.h"
#include "platform/XmlDocument.h"

namespace quorvane::cli {

ResultPage::ResultPage(bool showsLines, std::optional<std::int32_t> maxCount)
    : result_(std::make_shared<ResultCollection>()), condSnap_(std::make_shared<ConditionSnap>()), maxCount_(maxCount) {
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
    if (lastLine_ != pi->mlngID && firstFailed_ == 0) NoteFailure(pi->mlngID);
    if (!Wanted(*pi)) return;
    ++told_;
    if (OnMatch) OnMatch(*pi);
  });
}

ResultPage::~ResultPage() {
  mobjTask.TearDown();
  if (mobjFilter) mobjFilter->TearDown();
  result_->TearDown();
}

void ResultPage::TakeLine(const std::u16string& line, std::int32_t id) {
  if (OnLine && !TrimBlanks(line).empty() && Wanted(*result_->Item(id))) OnLine(line, id);
}

/// A stylesheet that takes too much takes it for every match: the search ends.
void ResultPage::NoteFailure(std::int32_t id) {
  firstFailed_ = id;
  try {
    CheckLines();
  } catch (const Error& error) {
    if (error.Is(ErrorNumber::OutOfStack)) mobjTask.mblnCancel = true;
  }
}

bool ResultPage::Wanted(const PositionInfo& pi) {
  if (!maxCount_) return true;
  const vbide::CodeModule* code = pi.mobjCodeObject.get();
  if (code != code_) lines_ = 0;
  if (code != code_ || pi.mlngY1 != line_) ++lines_;
  code_ = code;
  line_ = pi.mlngY1;
  return lines_ <= *maxCount_;
}

void ResultPage::CheckLines() {
  if (firstFailed_ != 0 && mobjFilter) mobjFilter->Item(firstFailed_).Transform(mobjFilter->StyleSheet());
}

}  // namespace quorvane::cli

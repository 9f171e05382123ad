#include "platform/forms/RichTextBox.h"

#include <algorithm>

#include "base/Checked.h"
#include "base/Error.h"

namespace quorvane::forms {

namespace {

void CheckNotNegative(std::int32_t value, const char16_t* what) {
  if (value < 0) RaiseError(ErrorNumber::InvalidPropertyValue, std::u16string(u"Invalid property value: ") + what);
}

/// The part of a run from `start` to just before `end`; its length is 0 or less when they have nothing in common.
RichTextBox::Run Part(const RichTextBox::Run& run, std::int32_t start, std::int32_t end) {
  const std::int32_t from = std::max(run.Start, start);
  return {from, std::min(run.Start + run.Length, end) - from, run.Color, run.StrikeThru};
}

}  // namespace

void RichTextBox::SetText(const std::u16string& text) {
  const Format format = SelFormat();
  selStart_ = 0;
  selLength_ = Length();
  ReplaceSelection(text, format);
  selStart_ = 0;
  Changed.Raise();
  Change.Raise();
}

void RichTextBox::SetSelStart(std::int32_t start) {
  CheckNotNegative(start, u"the start of a selection");
  selStart_ = std::min(start, Length());
  selLength_ = 0;
  if (!runs_.empty()) caret_ = FormatAt(std::max(selStart_ - 1, 0));
  Changed.Raise();
}

void RichTextBox::SetSelLength(std::int32_t length) {
  CheckNotNegative(length, u"the length of a selection");
  selLength_ = std::min(length, Length() - selStart_);
  Changed.Raise();
}

std::u16string RichTextBox::SelText() const {
  return text_.substr(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_));
}

void RichTextBox::SetSelText(const std::u16string& text) {
  ReplaceSelection(text, SelFormat());
  Changed.Raise();
  Change.Raise();
}

void RichTextBox::SetSelColor(quorvane::Color color) {
  SetFormat([color](Format& format) { format.Color = color; });
}

void RichTextBox::SetSelStrikeThru(bool strikeThru) {
  SetFormat([strikeThru](Format& format) { format.StrikeThru = strikeThru; });
}

void RichTextBox::SetFont(const forms::Font& font) {
  if (font == font_) return;
  font_ = font;
  Changed.Raise();
}

RichTextBox::Format RichTextBox::FormatAt(std::int32_t place) const {
  const auto run = std::ranges::find_if(runs_, [&](const Run& r) { return place < r.Start + r.Length; });
  return run != runs_.end() ? *run : caret_;
}

template <class Set>
void RichTextBox::SetFormat(Set set) {
  if (selLength_ == 0) {
    set(caret_);
  } else {
    const std::int32_t end = selStart_ + selLength_;
    std::vector<Run> runs;
    for (const Run& run : runs_) {
      Run changed = Part(run, selStart_, end);
      set(changed);
      AddRun(runs, Part(run, 0, selStart_));
      AddRun(runs, changed);
      AddRun(runs, Part(run, end, Length()));
    }
    runs_ = std::move(runs);
  }
  Changed.Raise();
}

void RichTextBox::AddRun(std::vector<Run>& runs, Run run) const {
  if (run.Length <= 0) return;
  if (!runs.empty() && runs.back().Color == run.Color && runs.back().StrikeThru == run.StrikeThru) {
    runs.back().Length += run.Length;
  } else {
    runs.push_back(run);
  }
}

void RichTextBox::ReplaceSelection(std::u16string_view text, const Format& format) {
  const std::int32_t end = selStart_ + selLength_;
  const std::int32_t added = Checked32(static_cast<std::int64_t>(text.size()));
  const std::int32_t shift = Checked32(std::int64_t{Length()} - selLength_ + added) - Length();
  std::vector<Run> runs;
  for (const Run& run : runs_) AddRun(runs, Part(run, 0, selStart_));
  AddRun(runs, {selStart_, added, format.Color, format.StrikeThru});
  for (const Run& run : runs_) {
    Run behind = Part(run, end, Length());
    behind.Start += shift;
    AddRun(runs, behind);
  }
  text_.replace(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_), text);
  runs_ = std::move(runs);
  caret_ = format;
  selStart_ += added;
  selLength_ = 0;
}

}  // namespace quorvane::forms

#include "workbench/text/ModuleText.h"

#include <algorithm>
#include <atomic>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane::workbench {

namespace {

std::uint64_t NextRevision() {
  static std::atomic<std::uint64_t> last = 0;
  return ++last;
}

/// Without the lone LF at its end.
std::u16string_view WithoutFinalLf(std::u16string_view text) {
  if (!text.ends_with(u'\n') || text.ends_with(kCrLf)) return text;
  return text.substr(0, text.size() - 1);
}

/// Calls `take` for each line of `text`; a text that ends in a line end has an empty last line.
template <class Take>
void ForEachLine(std::u16string_view text, const Take& take) {
  std::size_t begin = 0;
  while (true) {
    const std::size_t end = text.find_first_of(kCrLf, begin);
    take(text.substr(begin, end - begin));
    if (end == text.npos) return;
    begin = end + (text.substr(end, 2) == kCrLf ? 2 : 1);
  }
}

}  // namespace

ModuleText::ModuleText(std::shared_ptr<const SourceFile> file, const CodePage& page, const TurnClock& clock)
    : file_(std::move(file)), page_(&page), clock_(&clock), revision_(NextRevision()) {
  Deref(file_);
}

std::int32_t ModuleText::Count() const {
  return edited_ ? static_cast<std::int32_t>(records_.Size()) : file_->CountOfLines();
}

LineRecord ModuleText::Record(std::int32_t index) const {
  const auto at = static_cast<std::size_t>(index);
  if (edited_) return records_[at];
  const SourceFile::Line line = file_->LineAt(at);
  return {line.begin, line.length};
}

std::string_view ModuleText::SpanBytes(std::int32_t index) const {
  const LineRecord record = Record(index);
  return std::string_view(file_->Bytes()).substr(record.begin, record.length);
}

std::u16string_view ModuleText::TypedText(std::int32_t index) const {
  const LineRecord record = Record(index);
  return std::u16string_view(typed_).substr(record.begin & ~LineRecord::kTyped, record.length);
}

std::u16string_view ModuleText::LineText(std::int32_t index, std::u16string& buffer) const {
  if (!IsSpan(index)) return TypedText(index);
  buffer.clear();
  page_->Decode(SpanBytes(index), buffer);
  return buffer;
}

std::u16string ModuleText::Joined(std::int64_t first, std::int64_t count) const {
  const std::int64_t begin = std::max<std::int64_t>(first, 0);
  const std::int64_t end = std::min<std::int64_t>(first + count, Count());
  std::u16string text;
  const std::string_view bytes = file_->Bytes();
  for (std::int64_t i = begin; i < end; ++i) {
    if (i > begin) text += kCrLf;
    LineRecord record = Record(static_cast<std::int32_t>(i));
    if (!record.IsSpan()) {
      text += TypedText(static_cast<std::int32_t>(i));
      continue;
    }
    // Spans with nothing but a CR LF between them are decoded in one go, since it is no part of another character. Two
    // bytes alone do not tell: they may be the LFs around an empty line that was deleted.
    for (; i + 1 < end; ++i) {
      const LineRecord next = Record(static_cast<std::int32_t>(i + 1));
      const std::size_t behind = std::size_t{record.begin} + record.length;
      if (next.begin != behind + 2 || bytes[behind] != '\r' || bytes[behind + 1] != '\n') break;
      record.length += next.length + 2;
    }
    page_->Decode(bytes.substr(record.begin, record.length), text);
  }
  return text;
}

void ModuleText::Insert(std::int32_t index, std::u16string_view text) {
  if (typed_.size() + text.size() >= LineRecord::kTyped) RaiseError(ErrorNumber::OutOfMemory);
  std::vector<LineRecord> inserted;
  ForEachLine(WithoutFinalLf(text), [&](std::u16string_view line) { inserted.push_back(Store(line)); });
  Replace(index, 0, inserted);
}

void ModuleText::Delete(std::int32_t index, std::int32_t count) {
  Replace(index, count, {});
}

LineRecord ModuleText::Store(std::u16string_view line) {
  const LineRecord record{LineRecord::kTyped | static_cast<std::uint32_t>(typed_.size()),
                          static_cast<std::uint32_t>(line.size())};
  typed_ += line;
  return record;
}

void ModuleText::BeginEditing() {
  if (edited_) return;
  std::vector<LineRecord> records;
  records.reserve(file_->Lines().size());
  for (const SourceFile::Line& line : file_->Lines()) records.push_back({line.begin, line.length});
  records_ = LineBuffer(std::move(records));
  edited_ = true;
}

ModuleText::Step& ModuleText::OpenStep() {
  redo_.clear();
  if (!stepOpen_ || undo_.back().turn != clock_->Now()) {
    undo_.emplace_back();
    undo_.back().turn = clock_->Now();
    undo_.back().stateBefore = state_;
    stepOpen_ = true;
  }
  return undo_.back();
}

void ModuleText::Replace(std::int32_t index, std::int32_t removed, const std::vector<LineRecord>& inserted) {
  BeginEditing();
  Step& step = OpenStep();
  step.edits.push_back({index, removed, static_cast<std::int32_t>(inserted.size())});
  for (std::int32_t i = 0; i < removed; ++i) step.records.push_back(Record(index + i));
  step.records.insert(step.records.end(), inserted.begin(), inserted.end());
  records_.Replace(static_cast<std::size_t>(index), static_cast<std::size_t>(removed), inserted.data(),
                   inserted.size());
  // A revision never comes back, so it names the new state as well as any number.
  Touch();
  state_ = revision_;
  step.stateAfter = state_;
}

void ModuleText::Touch() {
  revision_ = NextRevision();
}

bool ModuleText::Undo() {
  if (undo_.empty()) return false;
  Step step = std::move(undo_.back());
  undo_.pop_back();
  const LineRecord* records = step.records.data() + step.records.size();
  for (auto edit = step.edits.rbegin(); edit != step.edits.rend(); ++edit) {
    records -= edit->removed + edit->inserted;
    records_.Replace(static_cast<std::size_t>(edit->line), static_cast<std::size_t>(edit->inserted), records,
                     static_cast<std::size_t>(edit->removed));
  }
  state_ = step.stateBefore;
  redo_.push_back(std::move(step));
  stepOpen_ = false;
  Touch();
  return true;
}

bool ModuleText::Redo() {
  if (redo_.empty()) return false;
  Step step = std::move(redo_.back());
  redo_.pop_back();
  const LineRecord* records = step.records.data();
  for (const Edit& edit : step.edits) {
    records_.Replace(static_cast<std::size_t>(edit.line), static_cast<std::size_t>(edit.removed),
                     records + edit.removed, static_cast<std::size_t>(edit.inserted));
    records += edit.removed + edit.inserted;
  }
  state_ = step.stateAfter;
  undo_.push_back(std::move(step));
  stepOpen_ = false;
  Touch();
  return true;
}

void ModuleText::MarkSaved() {
  stepOpen_ = false;
  savedState_ = state_;
  savedIsOpened_ = !edited_;
  savedRecords_.clear();
  if (!edited_) return;
  for (std::size_t i = 0; i < records_.Size(); ++i) savedRecords_.push_back(records_[i]);
}

std::vector<std::int32_t> ModuleText::LinesSinceSaved() const {
  const std::size_t savedCount = savedIsOpened_ ? file_->Lines().size() : savedRecords_.size();
  const auto saved = [this](std::size_t i) {
    if (!savedIsOpened_) return savedRecords_[i];
    const SourceFile::Line& line = file_->Lines()[i];
    return LineRecord{line.begin, line.length};
  };
  std::vector<std::int32_t> lines(static_cast<std::size_t>(Count()), -1);
  std::size_t next = 0;
  for (std::int32_t i = 0; i < Count(); ++i) {
    const LineRecord record = Record(i);
    if (!record.IsSpan()) continue;
    while (next < savedCount && (!saved(next).IsSpan() || saved(next).begin < record.begin)) ++next;
    if (next < savedCount && saved(next).begin == record.begin)
      lines[static_cast<std::size_t>(i)] = static_cast<std::int32_t>(next++);
  }
  return lines;
}

}  // namespace quorvane::workbench

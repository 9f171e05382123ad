#include "desktop/editor/CodeMarks.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

#include "desktop/editor/CodeEdit.h"

namespace quorvane::desktop {

CodeMarks::CodeMarks(CodeEdit& editor) : editor_(editor) {
  connect(editor.document(), &QTextDocument::contentsChange, this,
          [this](int position, int, int added) { Follow(position, added); });
  connect(editor.verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { Show(); });
  connect(editor.verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { Show(); });
}

void CodeMarks::Set(std::vector<Place> places) {
  if (places.empty() && marks_.empty()) return;
  marks_.clear();
  std::ranges::sort(places, {}, &Place::begin);
  const int end = editor_.document()->characterCount() - 1;
  for (const Place& place : places) {
    if (place.begin >= place.end || place.end > end) continue;
    Mark mark{QTextCursor(editor_.document()), {}, 0, place.number};
    mark.range.setPosition(place.begin);
    mark.range.setPosition(place.end, QTextCursor::KeepAnchor);
    mark.range.setKeepPositionOnInsert(true);  // what is typed after the mark is no part of it
    mark.text = mark.range.selectedText();
    mark.column = place.begin - editor_.document()->findBlock(place.begin).position();
    marks_.push_back(std::move(mark));
  }
  Show();
}

std::vector<CodeMarks::Place> CodeMarks::Places() const {
  std::vector<Place> places;
  for (const Mark& mark : marks_) {
    places.push_back({mark.range.selectionStart(), mark.range.selectionEnd(), mark.number});
  }
  return places;
}

std::size_t CodeMarks::FirstBehind(int position) const {
  const auto found =
      std::ranges::lower_bound(marks_, position, {}, [](const Mark& mark) { return mark.range.selectionEnd(); });
  return static_cast<std::size_t>(found - marks_.begin());
}

std::int32_t CodeMarks::NumberAtCursor() const {
  const QTextCursor cursor = editor_.textCursor();
  std::int32_t number = 0;
  for (std::size_t i = FirstBehind(cursor.selectionStart()); i < marks_.size(); ++i) {
    const QTextCursor& range = marks_[i].range;
    if (range.selectionStart() > cursor.selectionStart()) break;
    number = marks_[i].number;
    if (range.selectionStart() == cursor.selectionStart()) break;
  }
  return number;
}

std::vector<int> CodeMarks::Lines() const {
  std::vector<int> lines;
  for (const Mark& mark : marks_) {
    const int line = editor_.document()->findBlock(mark.range.selectionStart()).blockNumber();
    if (lines.empty() || lines.back() != line) lines.push_back(line);
  }
  return lines;
}

/// What the module's history or an add-in does comes as whole lines, which leaves a mark empty at the end of its line:
/// it goes on where it stood in the line, if its text is there.
bool CodeMarks::Keeps(Mark& mark) const {
  if (mark.range.selectedText() == mark.text) return true;
  const QTextBlock block = editor_.document()->findBlock(mark.range.selectionStart());
  const int begin = block.position() + mark.column;
  const int end = begin + static_cast<int>(mark.text.size());
  if (end >= editor_.document()->characterCount()) return false;
  mark.range.setPosition(begin);
  mark.range.setPosition(end, QTextCursor::KeepAnchor);
  return mark.range.selectedText() == mark.text;
}

void CodeMarks::Follow(int position, int added) {
  if (marks_.empty()) return;
  const QTextBlock last = editor_.document()->findBlock(position + added);
  const int end = last.isValid() ? last.position() + last.length() : editor_.document()->characterCount();
  const auto first = marks_.begin() + static_cast<std::ptrdiff_t>(FirstBehind(position));
  const auto behind =
      std::find_if(first, marks_.end(), [&](const Mark& mark) { return mark.range.selectionStart() > end; });
  const auto kept = std::remove_if(first, behind, [this](Mark& mark) { return !Keeps(mark); });
  for (auto mark = first; mark != kept; ++mark) {
    const int begin = mark->range.selectionStart();
    mark->column = begin - editor_.document()->findBlock(begin).position();
  }
  const bool gone = kept != behind;
  marks_.erase(kept, behind);
  const auto begin = [](const Mark& mark) { return mark.range.selectionStart(); };
  std::ranges::stable_sort(marks_, {}, begin);
  const auto twice = std::ranges::unique(marks_, {}, begin);
  marks_.erase(twice.begin(), twice.end());
  if (gone) Show();
}

/// Those around what is in view: the editor looks at each that it has for each line that it draws.
void CodeMarks::Show() {
  const QTextBlock top = editor_.cursorForPosition({0, 0}).block();
  const int lines = editor_.viewport()->height() / std::max(1, editor_.fontMetrics().height()) + 2;
  const QTextBlock bottom =
      editor_.document()->findBlockByNumber(std::min(editor_.blockCount() - 1, top.blockNumber() + lines));
  std::vector<QTextCursor> shown;
  for (std::size_t i = FirstBehind(top.position()); i < marks_.size(); ++i) {
    if (marks_[i].range.selectionStart() > bottom.position() + bottom.length()) break;
    shown.push_back(marks_[i].range);
  }
  editor_.ShowMarks(shown);
}

}  // namespace quorvane::desktop

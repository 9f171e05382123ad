#include "desktop/editor/ModuleBinding.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "base/CommonEnds.h"
#include "base/FlagScope.h"
#include "base/Text.h"
#include "desktop/platform/QtText.h"
#include "workbench/model/Module.h"

namespace quorvane::desktop {

namespace {

/// What a text document shows for a character that it would take for a break, an object or the end.
char16_t Shown(char16_t c) {
  switch (c) {
    case u'\0':
      return u'\u2400';
    case u'\u2028':
    case u'\u2029':
    case u'\uFDD0':
    case u'\uFDD1':
      return u'\u2424';
    case u'\uFFFC':
      return u'\uFFFD';
    default:
      return c;
  }
}

std::u16string ShownText(std::u16string text) {
  std::ranges::transform(text, text.begin(), Shown);
  return text;
}

template <class LineRange>
std::u16string Join(const LineRange& lines, std::u16string_view separator) {
  std::u16string text;
  bool first = true;
  for (const auto& line : lines) {
    if (!first) text += separator;
    first = false;
    text += line;
  }
  return text;
}

std::vector<std::u16string> SplitLines(std::u16string_view text, std::u16string_view separator) {
  const auto views = Split(text, separator);
  return {views.begin(), views.end()};
}

/// `before` with what the user changed in its shown form: the parts that are as they were keep their own characters.
std::u16string Merge(const std::u16string& before, std::u16string_view shownAfter) {
  const std::u16string shownBefore = ShownText(before);
  const CommonEnds common = FindCommonEnds(shownBefore, shownAfter);
  std::u16string merged = before.substr(0, common.head);
  merged += shownAfter.substr(common.head, shownAfter.size() - common.head - common.tail);
  merged += before.substr(before.size() - common.tail);
  return merged;
}

}  // namespace

ModuleBinding::ModuleBinding(std::shared_ptr<workbench::Module> module, QTextDocument& document)
    : module_(std::move(module)), document_(document) {
  document_.setUndoRedoEnabled(false);
  document_.documentLayout();  // without one it does not tell of changes
  document_.setPlainText(ToQString(Join(ModuleLines(), u"\n")));
  shown_ = module_->Revision();
  blocks_ = document_.blockCount();
  connect(&document_, &QTextDocument::contentsChange, this,
          [this](int position, int, int added) { Push(position, added); });
  changed_ = module_->Changed.Subscribe([this] { ModuleChanged(); });
}

/// As shown; an empty module shows one empty line.
ModuleBinding::Lines ModuleBinding::ModuleLines() const {
  return SplitLines(ShownText(module_->Text()), kCrLf);
}

ModuleBinding::Lines ModuleBinding::BlockLines(int first, int last) const {
  Lines lines;
  QTextBlock block = document_.findBlockByNumber(first);
  for (int number = first; number <= last && block.isValid(); ++number, block = block.next()) {
    lines.push_back(FromQString(block.text()));
  }
  return lines;
}

void ModuleBinding::ModuleChanged() {
  if (pushing_ || pullAsked_) return;
  pullAsked_ = true;
  QTimer::singleShot(0, this, [this] { Pull(); });
}

void ModuleBinding::Pull() {
  pullAsked_ = false;
  if (shown_ == module_->Revision()) return;
  shown_ = module_->Revision();
  const Lines before = BlockLines(0, document_.blockCount() - 1);
  const Lines after = ModuleLines();
  const CommonEnds common = FindCommonEnds(before, after);
  const auto removed = static_cast<int>(before.size() - common.head - common.tail);
  const auto head = static_cast<std::ptrdiff_t>(common.head);
  const Lines inserted(after.begin() + head, after.end() - static_cast<std::ptrdiff_t>(common.tail));
  if (removed > 0 || !inserted.empty()) {
    const FlagScope pulling(pulling_);
    Show(static_cast<int>(head), removed, static_cast<int>(common.tail), inserted);
  }
  blocks_ = document_.blockCount();
  Pulled.Raise();
}

/// Puts `lines` in the place of `removed` blocks after the first `head` ones; `tail` blocks follow.
void ModuleBinding::Show(int head, int removed, int tail, const Lines& lines) {
  QTextCursor cursor(&document_);
  const auto startOf = [&](int number) { return document_.findBlockByNumber(number).position(); };
  const int end = document_.characterCount() - 1;
  QString text = ToQString(Join(lines, u"\n"));
  if (removed > 0 && !lines.empty()) {
    cursor.setPosition(startOf(head));
    cursor.setPosition(tail > 0 ? startOf(head + removed) - 1 : end, QTextCursor::KeepAnchor);
  } else if (tail > 0) {
    cursor.setPosition(startOf(head));
    cursor.setPosition(startOf(head + removed), QTextCursor::KeepAnchor);
    if (!lines.empty()) text += QLatin1Char('\n');
  } else {
    // At the end the separator in front goes or comes with the lines.
    cursor.setPosition(removed == 0 ? end : head > 0 ? startOf(head) - 1 : 0);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    if (!lines.empty()) text.prepend(QLatin1Char('\n'));
  }
  cursor.insertText(text);
  lastChange_ = tail > 0 && removed == 0 && !lines.empty() ? cursor.position() - 1 : cursor.position();
}

void ModuleBinding::Push(int position, int added) {
  if (pulling_) return;
  const int count = document_.blockCount();
  const int before = std::exchange(blocks_, count);
  if (shown_ != module_->Revision()) return ModuleChanged();  // the module has gone on; it wins
  const int first = document_.findBlock(position).blockNumber();
  const int end = std::min(position + added, document_.characterCount() - 1);
  const int last = document_.findBlock(end).blockNumber();
  const int lastBefore = before - (count - last);
  const Lines shown = BlockLines(first, last);
  Lines old;
  if (module_->CountOfLines() > 0) {
    for (int line = first; line <= lastBefore; ++line) old.push_back(module_->Lines(line + 1, 1));
  }
  const Lines now = old.empty() ? shown : SplitLines(Merge(Join(old, u"\n"), Join(shown, u"\n")), u"\n");
  if (!old.empty() || now.size() > 1 || !now.front().empty()) {
    const FlagScope pushing(pushing_);
    Store(first + 1, old, now);
  }
  shown_ = module_->Revision();
}

/// Edits the module so that the lines `before` from line `first` on become `after`.
void ModuleBinding::Store(std::int32_t first, const Lines& before, const Lines& after) {
  const CommonEnds common = FindCommonEnds(before, after);
  const auto at = static_cast<std::int32_t>(static_cast<std::size_t>(first) + common.head);
  const auto removed = static_cast<std::int32_t>(before.size() - common.head - common.tail);
  const Lines inserted(after.begin() + static_cast<std::ptrdiff_t>(common.head),
                       after.end() - static_cast<std::ptrdiff_t>(common.tail));
  if (removed > 0) module_->DeleteLines(at, removed);
  if (!inserted.empty()) module_->InsertLines(at, Join(inserted, kCrLf));
}

}  // namespace quorvane::desktop

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePage.h"
#include "workbench/text/LineBuffer.h"
#include "workbench/text/SourceFile.h"
#include "workbench/text/TurnClock.h"

namespace quorvane::workbench {

/// The lines of one module, with undo and redo. Line numbers are 0-based here.
///
/// A line is a record of eight bytes: a span of the opened file, which is decoded only when somebody reads it, or a
/// place in a store of typed text that only grows. Until the first edit the records are those of the file and nothing
/// is copied. An edit moves records, and a step of undo keeps records, never text.
/// Invariant: the spans among the records ascend, because an edit brings in typed text alone.
class ModuleText {
 public:
  /// `page` and `clock` must outlive this.
  ModuleText(std::shared_ptr<const SourceFile> file, const CodePage& page, const TurnClock& clock);

  std::int32_t Count() const;
  /// True while the lines are those of the opened file.
  bool Pristine() const { return !edited_; }
  const SourceFile& Opened() const { return *file_; }
  const CodePage& Page() const { return *page_; }

  bool IsSpan(std::int32_t index) const { return Record(index).IsSpan(); }
  /// The bytes of a line that is a span of the opened file.
  std::string_view SpanBytes(std::int32_t index) const;
  /// The text of a line that is none; good until the next edit.
  std::u16string_view TypedText(std::int32_t index) const;
  /// The text of any line. `buffer` may be overwritten and may hold the result.
  std::u16string_view LineText(std::int32_t index, std::u16string& buffer) const;

  /// Those of the lines [first, first + count) that exist, joined by CR LF.
  std::u16string Joined(std::int64_t first, std::int64_t count) const;

  /// Puts the lines of `text` before line `index`, which is at most Count(). CR LF, a lone CR and a lone LF separate
  /// lines; a lone LF at the very end separates nothing. At least one line comes in.
  void Insert(std::int32_t index, std::u16string_view text);
  /// All of these lines exist and `count` is above 0.
  void Delete(std::int32_t index, std::int32_t count);

  /// Grows in the whole process with each edit, undo and redo; never 0.
  std::uint64_t Revision() const { return revision_; }

  /// Names the present lines: undo and redo come back to the state that they restore.
  std::uint64_t State() const { return state_; }

  bool CanUndo() const { return !undo_.empty(); }
  bool CanRedo() const { return !redo_.empty(); }
  /// False when there is nothing to undo or redo.
  bool Undo();
  bool Redo();

  /// False after the lines came back to what they were at MarkSaved (or at the start) by undo and redo.
  bool Modified() const { return state_ != savedState_; }
  /// The next edit begins a step of its own, so that undo can come back to this state.
  void MarkSaved();

  /// The line of the saved state that the line was then, 0-based and ascending, for each line that is still the same
  /// span of the opened file; -1 for the others.
  std::vector<std::int32_t> LinesSinceSaved() const;

 private:
  /// Lines [line, line + removed) gave way to `inserted` others. The step's records hold the removed, then the
  /// inserted ones.
  struct Edit {
    std::int32_t line = 0;
    std::int32_t removed = 0;
    std::int32_t inserted = 0;
  };
  /// The edits of one turn, in their order.
  struct Step {
    std::uint64_t turn = 0;
    std::uint64_t stateBefore = 0;
    std::uint64_t stateAfter = 0;
    std::vector<Edit> edits;
    std::vector<LineRecord> records;
  };

  LineRecord Record(std::int32_t index) const;
  LineRecord Store(std::u16string_view line);
  void BeginEditing();
  Step& OpenStep();
  void Replace(std::int32_t index, std::int32_t removed, const std::vector<LineRecord>& inserted);
  void Touch();

  std::shared_ptr<const SourceFile> file_;
  const CodePage* page_;
  const TurnClock* clock_;
  bool edited_ = false;
  LineBuffer records_;    ///< filled at the first edit
  std::u16string typed_;  ///< all lines that were ever typed, end to end
  std::vector<Step> undo_;
  std::vector<Step> redo_;
  bool stepOpen_ = false;    ///< edits of this turn may still join undo_.back()
  std::uint64_t state_ = 0;  ///< names the present sequence of records
  std::uint64_t savedState_ = 0;
  bool savedIsOpened_ = true;             ///< the saved state is that of the opened file
  std::vector<LineRecord> savedRecords_;  ///< else its records
  std::uint64_t revision_;
};

}  // namespace quorvane::workbench

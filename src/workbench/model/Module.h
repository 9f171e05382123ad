#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Event.h"
#include "platform/ScreenColumns.h"
#include "vbide/VBIDE.h"
#include "workbench/find/LineMatcher.h"
#include "workbench/text/ByteScanner.h"
#include "workbench/text/ComposeFile.h"
#include "workbench/text/ModuleText.h"
#include "workbench/text/ProcedureMap.h"
#include "workbench/text/SourceFile.h"
#include "workbench/text/TurnClock.h"

namespace quorvane::workbench {

/// The text of one component. What it derives from the text (procedures, a compiled search) it makes at first use and
/// keeps by revision; it serves one thread at a time, readers included.
class Module final : public vbide::CodeModule {
 public:
  /// `page` is that of the file, `columns` that by which screen columns are counted, the same when it is null. All
  /// three must outlive this.
  Module(std::shared_ptr<const SourceFile> file, const CodePage& page, TurnClock& clock,
         const CodePage* columns = nullptr);

  void SetParent(std::weak_ptr<vbide::VBComponent> parent) { parent_ = std::move(parent); }
  /// `maker` makes the pane, once, when it is first asked for.
  void SetPaneMaker(std::function<std::shared_ptr<vbide::CodePane>()> maker) { paneMaker_ = std::move(maker); }

  std::shared_ptr<vbide::VBComponent> Parent() const override { return parent_.lock(); }
  /// Null when there is no maker.
  std::shared_ptr<vbide::CodePane> CodePane() override;
  std::int32_t CountOfLines() const override { return text_.Count(); }
  std::int32_t CountOfDeclarationLines() const override;
  std::u16string Lines(std::int32_t start, std::int32_t count) const override;
  void InsertLines(std::int32_t line, std::u16string_view text) override;
  void DeleteLines(std::int32_t start, std::int32_t count) override;
  /// A line that does not exist has no procedure either. Where a name stands for several procedures, this is also which
  /// of them the two operations below mean, until the next call or edit.
  std::u16string ProcOfLine(std::int32_t line, vbide::ProcKind& kind) const override;
  std::int32_t ProcStartLine(std::u16string_view name, vbide::ProcKind kind) const override;
  std::int32_t ProcCountLines(std::u16string_view name, vbide::ProcKind kind) const override;
  /// Raises error 93 for an invalid pattern.
  bool Find(std::u16string_view target, vbide::Selection& range, bool wholeWord, bool matchCase,
            bool patternSearch) const override;
  bool SurelyLacks(std::u16string_view target, bool wholeWord, bool matchCase, bool patternSearch) const override;
  bool SurelyLacksAll(const std::vector<std::string>& texts, bool matchCase) const override;
  std::uint64_t Revision() const override { return text_.Revision(); }

  /// In the order of their lines.
  const std::vector<Procedure>& Procedures() const { return Map().Procedures(); }
  std::u16string Text() const { return text_.Joined(0, text_.Count()); }

  /// True when edits were made since the last save that undo has not taken back.
  bool Modified() const { return text_.Modified(); }
  /// Names the present text: undo and redo come back to the state that they restore.
  std::uint64_t State() const { return text_.State(); }
  bool CanUndo() const { return text_.CanUndo(); }
  bool CanRedo() const { return text_.CanRedo(); }
  /// Takes back, or does again, the edits of one turn; false when there is nothing.
  bool Undo();
  bool Redo();

  /// In which the file is written.
  const CodePage& Page() const { return text_.Page(); }
  /// Reads what the file last held in another code page, which outlives this. Edits that are not saved and the steps of
  /// undo are given up.
  void Reopen(const CodePage& page);

  /// What the file last held.
  const std::shared_ptr<const SourceFile>& Saved() const { return saved_; }
  /// The file that a save would write. Raises error 5, naming line, column (in characters) and character, when the
  /// code page lacks a character.
  ComposedFile Compose() const;
  /// The present text is now what `file` holds.
  void MarkSaved(std::shared_ptr<const SourceFile> file);
  /// 1-based line of the saved file in which line `line` of its code stands.
  std::int32_t FileLine(std::int32_t line) const { return saved_->FileLine(line); }

  /// Raised after each edit, undo and redo.
  Event<> Changed;

 private:
  /// A search target made ready.
  struct Search {
    std::u16string target;
    MatchOptions options;
    std::unique_ptr<LineMatcher> matcher;
    ByteScanner scanner;
    Sieve sieve;
  };
  struct Bounds;
  /// A line as it was last read.
  struct ReadLine {
    std::int32_t number = 0;     ///< 1-based; 0: none yet
    std::uint64_t revision = 0;  ///< of the text that it was read from
    std::u16string_view text;    ///< in lineBuffer_, or typed text
    bool ascii = false;          ///< a screen column is then a place in the text
  };

  const ReadLine& Read(std::int32_t line) const;
  std::size_t ToUnit(const ReadLine& line, std::int32_t column, InsideWide inside) const;
  std::int32_t ToColumn(const ReadLine& line, std::size_t unit) const;
  const ProcedureMap& Map() const;
  const Procedure& Named(std::u16string_view name, vbide::ProcKind kind) const;
  const Search& Prepared(std::u16string_view target, const MatchOptions& options) const;
  std::optional<Bounds> ClipToModule(const vbide::Selection& range) const;
  bool FindInLine(const Search& search, std::int32_t line, const Bounds& bounds, vbide::Selection& found) const;
  bool FindInFile(const Search& search, const Bounds& bounds, vbide::Selection& found) const;
  bool FindByLines(const Search& search, const Bounds& bounds, vbide::Selection& found) const;

  ModuleText text_;
  TurnClock& clock_;
  const CodePage& columns_;
  std::shared_ptr<const SourceFile> saved_;
  std::weak_ptr<vbide::VBComponent> parent_;
  std::function<std::shared_ptr<vbide::CodePane>()> paneMaker_;
  std::shared_ptr<vbide::CodePane> pane_;
  mutable ProcedureMap map_;
  mutable std::uint64_t mapRevision_ = 0;             ///< 0: no map yet
  mutable const Procedure* lastProcedure_ = nullptr;  ///< that ProcOfLine last gave, of this map
  mutable std::unique_ptr<Search> search_;
  mutable std::u16string lineBuffer_;  ///< that readLine_ alone points into
  mutable ReadLine readLine_;
};

}  // namespace quorvane::workbench

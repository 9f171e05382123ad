#pragma once

#include <QPlainTextEdit>
#include <memory>
#include <optional>
#include <vector>

#include "base/Event.h"
#include "desktop/editor/CaretHistory.h"
#include "desktop/editor/CodeColors.h"
#include "desktop/editor/ModuleBinding.h"

namespace quorvane::workbench {
class Module;
class TurnClock;
}  // namespace quorvane::workbench

namespace quorvane::desktop {

class CodeMarks;
class LineNumbers;
class MarkRuler;
class VbHighlighter;

/// The editor of one module's text. Undo and redo are the module's own, so that what was typed and what a command of
/// an add-in did come back alike, in their order; a run of typed characters is one step.
class CodeEdit final : public QPlainTextEdit {
 public:
  /// `turns` outlives this.
  CodeEdit(std::shared_ptr<workbench::Module> module, workbench::TurnClock& turns, QWidget* parent = nullptr);
  ~CodeEdit() override;

  const std::shared_ptr<workbench::Module>& TheModule() const { return binding_->TheModule(); }
  /// Shows what happened to the module, now.
  void Refresh() { binding_->Pull(); }

  void Undo();
  void Redo();
  /// 1-based; beyond the text the nearest line.
  void GoToLine(int line);
  /// Selects from one place to another (0-based, in units of the document); the cursor stands at the second.
  void Select(int anchor, int position);
  /// Scrolls so that the selection is in view, with a third of the view above it when it was not, and clear of dialogs.
  void Reveal();
  /// Select, then Reveal.
  void Locate(int anchor, int position);
  /// True while Locate moves the cursor: not the user's keys or mouse do.
  bool Jumping() const { return jumping_; }

  CodeMarks& Marks() { return *marks_; }
  /// Draws these as marked; with any mark in the text a ruler stands beside the scroll bar.
  void ShowMarks(std::vector<QTextCursor> ranges);

  /// Draws these lines (1-based) as bookmarked.
  void ShowBookmarks(std::vector<std::int32_t> lines);

  int GutterWidth() const;
  void PaintGutter(QPaintEvent& event);

  /// A menu of the editor is to be shown at this place of the screen.
  Event<const QPoint&> MenuWanted;
  /// The size of the text was changed by the wheel; in points.
  Event<int> Zoomed;

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  struct Typed {
    std::uint64_t revision = 0;  ///< of the module after the last typed character; 0: none
    int position = 0;
    bool blank = false;
  };

  bool Continues(const QKeyEvent& event) const;
  bool TakeKey(const QKeyEvent& event);
  void BreakLine();
  void Indent();
  void Outdent();
  void ShiftLines(bool right);
  void HighlightLine();
  void PaintBookmark(QPainter& painter, double top) const;
  void PlaceGutter();
  void ApplyColors();
  void NoteCaret();
  bool Shows(int position) const;
  void Place(bool shown);
  void LeaveCover(const QTextCursor& begin, int rows);
  void AfterHistory(const std::optional<CaretHistory::Caret>& caret);

  workbench::TurnClock& turns_;
  CodeColors colors_;
  std::unique_ptr<ModuleBinding> binding_;
  VbHighlighter* highlighter_;
  LineNumbers* numbers_;
  MarkRuler* ruler_;
  std::vector<QTextCursor> marked_;
  std::vector<std::int32_t> bookmarks_;  ///< 1-based, ascending
  bool jumping_ = false;
  Typed typed_;
  CaretHistory carets_;
  bool placed_ = false;  ///< the selection was brought into a view of its final size
  std::unique_ptr<CodeMarks> marks_;
};

}  // namespace quorvane::desktop

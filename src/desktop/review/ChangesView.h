#pragma once

#include <QKeySequence>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Event.h"
#include "desktop/platform/Texts.h"
#include "desktop/review/ChangeRows.h"
#include "desktop/review/ChangeSet.h"
#include "desktop/review/Patch.h"

class QAction;
class QLabel;
class QListView;
class QStackedWidget;

namespace quorvane {

namespace workbench {
class Component;
class Module;
class Workbench;
}  // namespace workbench

namespace desktop {

class ChangePainter;

/// What differs from the files, to look through before it is saved: puts a hunk or a module back, takes that back
/// again, and gives the rest as a patch. Compares only while it is shown.
class ChangesView final : public QWidget {
 public:
  /// Both outlive this.
  ChangesView(workbench::Workbench& workbench, const Texts& texts, QWidget* parent = nullptr);
  ~ChangesView() override;

  ChangeSet& Changes() { return changes_; }
  ChangeRows& Rows() { return rows_; }
  QListView& List() { return *list_; }
  QLabel& Summary() { return *summary_; }
  void UpdateTexts();

  /// Of the selected row's hunk; on a module's head, of the module.
  void PutBack();
  /// Takes the last PutBack back that is still the last edit of its module.
  void UndoPutBack();
  /// To the next hunk in one direction.
  void Step(int step);
  /// All changes for the patch program: to the clipboard, or to a file that the user names.
  void CopyPatch();
  void ExportPatch();
  /// The same to this file. Raises when it cannot be written.
  void WritePatch(const std::string& path);

  Event<> SaveAllWanted;
  Event<workbench::Component&, std::int32_t> LineWanted;  ///< 1-based line of the module
  Event<const QString&> Told;                             ///< a line that needs no answer

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// A module as a PutBack left it.
  struct Done {
    std::weak_ptr<workbench::Module> module;
    std::uint64_t state = 0;
  };

  struct Command {
    QAction* action = nullptr;
    Text text = Text::ChangesPutBack;
    QKeySequence keys;  ///< in the list
  };

  void Build();
  Patch ThePatch();
  void Refill();
  void UpdateSummary();
  void Open(const QModelIndex& index);
  bool TakeKey(int key, Qt::KeyboardModifiers modifiers);
  bool TakeClick(const QPoint& place);
  template <class Run>
  void Guarded(Text what, Run run);

  workbench::Workbench& workbench_;
  const Texts& texts_;
  ChangeSet changes_;
  ChangeRows rows_;
  QLabel* summary_;
  QLabel* empty_;
  QListView* list_;
  QStackedWidget* stack_;
  ChangePainter* painter_;
  std::vector<Command> actions_;
  std::vector<Done> done_;
  Subscription updated_;
};

}  // namespace desktop
}  // namespace quorvane

#pragma once

#include <QString>
#include <cstdint>
#include <memory>

#include "base/Event.h"
#include "desktop/navigate/DefinitionFinder.h"
#include "desktop/navigate/PlaceHistory.h"
#include "desktop/platform/Texts.h"

class QWidget;

namespace quorvane::desktop {

class CodeArea;
class CodeEdit;

/// The commands that lead from one place of the code to another.
class Navigator {
 public:
  /// All four outlive this; `window` is the parent of what asks.
  Navigator(workbench::Workbench& workbench, CodeArea& code, const Texts& texts, QWidget& window);

  /// To where the name under the caret is declared; of several the user chooses.
  void ToDefinition();
  /// To the next (1) or previous (-1) procedure of the module in front; to the header of this one first, when going
  /// back from inside of it.
  void StepProcedure(int step);
  /// To any procedure of the open projects, by a few letters of its name.
  void AskProcedure();
  /// Selects the name under the caret and gives it; empty when there is none.
  QString TakeName();
  PlaceHistory& History() { return history_; }

  Event<const QString&> Told;  ///< a line for the status bar

 private:
  CodeEdit* Editor() const;
  void GoTo(const Definition& definition);
  void Show(workbench::Component& component, std::int32_t line);

  workbench::Workbench& workbench_;
  CodeArea& code_;
  const Texts& texts_;
  QWidget& window_;
  PlaceHistory history_;
};

}  // namespace quorvane::desktop

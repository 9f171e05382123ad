#pragma once

#include <QObject>

#include "base/Event.h"

class QKeyEvent;

namespace quorvane {

namespace workbench {
class TurnClock;
}

namespace desktop {

/// Sees the user's input before any window does. Each input begins a new step of undo, but that an editor decides for
/// itself which typed characters belong together; and a hotkey of the add-in goes to it and no further.
class InputFilter final : public QObject {
 public:
  /// Installs itself on the application for as long as it lives. `turns` outlives this.
  explicit InputFilter(workbench::TurnClock& turns);
  ~InputFilter() override;

  Event<> NoResults;  ///< a hotkey that works on the current results was pressed while there are none

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool TakeHotkey(const QKeyEvent& event) const;
  bool IsHotkey(const QKeyEvent& event) const;

  workbench::TurnClock& turns_;
};

}  // namespace desktop
}  // namespace quorvane

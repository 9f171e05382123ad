#include "desktop/InputFilter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWindow>

#include "chordtrap/Manager.h"
#include "desktop/CodeEdit.h"
#include "desktop/QtKeys.h"
#include "host/Globals.h"
#include "services/ErrorManager.h"
#include "services/HotkeyProxy.h"
#include "workbench/TurnClock.h"

namespace quorvane::desktop {

namespace {

chordtrap::KeyChord ChordOf(const QKeyEvent& event) {
  return {VirtualKeyOf(event), ShiftStateOf(event.modifiers())};
}

chordtrap::Manager* Hotkeys() {
  if (!Globals::gobjHotkeyProxy || !Globals::gobjHotkeyProxy->Manager) return nullptr;
  return &*Globals::gobjHotkeyProxy->Manager;
}

}  // namespace

InputFilter::InputFilter(workbench::TurnClock& turns) : turns_(turns) {
  QCoreApplication::instance()->installEventFilter(this);
}

InputFilter::~InputFilter() = default;

/// A message box or another modal window keeps the keys to itself.
bool InputFilter::TakeHotkey(const QKeyEvent& event) const {
  chordtrap::Manager* manager = Hotkeys();
  const chordtrap::KeyChord chord = ChordOf(event);
  if (manager == nullptr || chord.KeyCode == 0 || QApplication::activeModalWidget() != nullptr) return false;
  try {
    return manager->KeyDown(chord.KeyCode, chord.Modifier);
  } catch (...) {
    if (Globals::gobjErrorManager) Globals::gobjErrorManager->ShowErr();
    return true;
  }
}

bool InputFilter::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress: {
      if (dynamic_cast<QWindow*>(watched) != nullptr) break;  // it comes again for the widget
      if (dynamic_cast<CodeEdit*>(watched) == nullptr) turns_.Next();
      return TakeHotkey(*static_cast<QKeyEvent*>(event));
    }
    case QEvent::ShortcutOverride: {
      // A key of the add-in comes before an equal one of the menus.
      const chordtrap::KeyChord chord = ChordOf(*static_cast<QKeyEvent*>(event));
      chordtrap::Manager* manager = Hotkeys();
      if (manager == nullptr || chord.KeyCode == 0 || !manager->Items().Find(chord)) break;
      event->accept();
      return true;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Shortcut:
    case QEvent::Drop:
      turns_.Next();
      break;
    default:
      break;
  }
  return false;
}

}  // namespace quorvane::desktop

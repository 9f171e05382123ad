#include "desktop/shell/InputFilter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWindow>

#include "addin/connect/HotkeyProxy.h"
#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/results/IResultPage.h"
#include "addin/results/PageManager.h"
#include "base/Error.h"
#include "chordtrap/Manager.h"
#include "desktop/editor/CodeEdit.h"
#include "desktop/platform/QtKeys.h"
#include "workbench/text/TurnClock.h"

namespace quorvane::desktop {

namespace {

chordtrap::KeyChord ChordOf(const QKeyEvent& event) {
  return {VirtualKeyOf(event), ShiftStateOf(event.modifiers())};
}

/// Nothing while there is nobody to hand keys to. A message box or another modal window keeps the keys to itself.
chordtrap::Manager* Hotkeys() {
  if (!Globals::gobjHotkeyProxy || QApplication::activeModalWidget() != nullptr) return nullptr;
  return Globals::gobjHotkeyProxy->Manager.get();
}

}  // namespace

InputFilter::InputFilter(workbench::TurnClock& turns) : turns_(turns) {
  QCoreApplication::instance()->installEventFilter(this);
}

InputFilter::~InputFilter() = default;

bool InputFilter::TakeHotkey(const QKeyEvent& event) const {
  chordtrap::Manager* manager = Hotkeys();
  const chordtrap::KeyChord chord = ChordOf(event);
  if (manager == nullptr || chord.KeyCode == 0) return false;
  try {
    return manager->KeyDown(chord.KeyCode, chord.Modifier);
  } catch (...) {
    const bool noPage = Globals::gobjPageManager && !Globals::gobjPageManager->ActivePage();
    if (noPage && CurrentError().Is(ErrorNumber::ObjectNotSet)) {
      NoResults.Raise();
    } else {
      ShowHandledError();
    }
    return true;
  }
}

/// Whether the key will be taken. One that is held back does what it does without the add-in.
bool InputFilter::IsHotkey(const QKeyEvent& event) const {
  chordtrap::Manager* manager = Hotkeys();
  const chordtrap::KeyChord chord = ChordOf(event);
  try {
    return manager != nullptr && chord.KeyCode != 0 && manager->Takes(chord.KeyCode, chord.Modifier);
  } catch (...) {
    return true;  // the press itself fails likewise, and tells
  }
}

bool InputFilter::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress: {
      if (dynamic_cast<QWindow*>(watched) != nullptr) break;  // it comes again for the widget
      if (dynamic_cast<CodeEdit*>(watched) == nullptr) turns_.Next();
      return TakeHotkey(*static_cast<QKeyEvent*>(event));
    }
    case QEvent::ShortcutOverride:
      // A key of the add-in comes before an equal one of the menus.
      if (!IsHotkey(*static_cast<QKeyEvent*>(event))) break;
      event->accept();
      return true;
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

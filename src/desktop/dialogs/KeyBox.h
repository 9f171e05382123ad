#pragma once

#include <QLineEdit>

#include "base/Event.h"
#include "chordtrap/KeyChord.h"

namespace quorvane::desktop {

/// A box that takes each key as a chord, with the modifiers that are held down, instead of typing it. Tab goes on to
/// the next control.
class KeyBox final : public QLineEdit {
 public:
  explicit KeyBox(QWidget* parent);

  Event<const chordtrap::KeyChord&> Pressed;

 protected:
  bool event(QEvent* event) override;
};

}  // namespace quorvane::desktop

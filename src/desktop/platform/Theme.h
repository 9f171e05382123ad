#pragma once

#include <QPalette>
#include <QString>

namespace quorvane::desktop {

/// The look of the whole program: that of the system, or light or dark by choice.
class Theme {
 public:
  enum class Choice { System, Light, Dark };

  /// Remembers the system's look; made once, before anything else changes it.
  Theme();

  void Apply(Choice choice);
  Choice Current() const { return current_; }

 private:
  QPalette systemPalette_;
  QString systemStyle_;
  Choice current_ = Choice::System;
};

}  // namespace quorvane::desktop

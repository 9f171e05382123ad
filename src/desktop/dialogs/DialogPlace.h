#pragma once

#include <QObject>

#include "base/Event.h"

class QSettings;
class QWidget;

namespace quorvane::forms {
class Form;
}

namespace quorvane::desktop {

class FormWindows;

/// Remembers where the user put the search dialog, from one run to the next. The dialog itself begins in the middle of
/// the screen; its window then comes up where it last stood, if a screen is there still.
class DialogPlace final : public QObject {
 public:
  /// Both outlive this. To be made after `windows`.
  DialogPlace(QSettings& settings, const FormWindows& windows);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Watch(const forms::Form& form);
  void Restore(QWidget& window);

  QSettings& settings_;
  const FormWindows& windows_;
  QWidget* fresh_ = nullptr;  ///< a window that was not shown yet
  Subscription opened_;
};

}  // namespace quorvane::desktop

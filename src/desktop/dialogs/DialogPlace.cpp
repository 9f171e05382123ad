#include "desktop/dialogs/DialogPlace.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>

#include "addin/dialogs/frmSearchDialog.h"
#include "desktop/dialogs/FormWindow.h"
#include "desktop/dialogs/FormWindows.h"
#include "platform/forms/Forms.h"

namespace quorvane::desktop {

namespace {

const QString kPlace = QStringLiteral("searchDialog/place");

}  // namespace

DialogPlace::DialogPlace(QSettings& settings, const FormWindows& windows) : settings_(settings), windows_(windows) {
  opened_ = forms::TheForms().Opened.Subscribe([this](const forms::Form& form) { Watch(form); });
}

void DialogPlace::Watch(const forms::Form& form) {
  FormWindow* window = windows_.WindowOf(form);
  if (window == nullptr || dynamic_cast<const frmSearchDialog*>(&form) == nullptr) return;
  fresh_ = window;
  window->installEventFilter(this);
}

bool DialogPlace::eventFilter(QObject* watched, QEvent* event) {
  auto* window = static_cast<QWidget*>(watched);
  if (event->type() == QEvent::Show && window == fresh_) {
    fresh_ = nullptr;
    Restore(*window);
  } else if (event->type() == QEvent::Hide && window != fresh_) {
    settings_.setValue(kPlace, window->pos());
  }
  return false;
}

void DialogPlace::Restore(QWidget& window) {
  const QVariant place = settings_.value(kPlace);
  if (!place.isValid()) return;
  const QRect shown(place.toPoint(), window.size());
  const QScreen* screen = QGuiApplication::screenAt(shown.center());
  if (screen != nullptr && screen->availableGeometry().contains(shown.topLeft())) window.move(shown.topLeft());
}

}  // namespace quorvane::desktop

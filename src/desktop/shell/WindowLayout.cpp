#include "desktop/shell/WindowLayout.h"

#include <QMainWindow>
#include <QSettings>

#include "desktop/editor/CodeArea.h"

namespace quorvane::desktop {

namespace {

const QString kGeometry = QStringLiteral("window/geometry");
const QString kState = QStringLiteral("window/state");
const QString kTabs = QStringLiteral("window/tabs");
const QString kTheme = QStringLiteral("window/theme");
const QString kTextSize = QStringLiteral("window/textSize");

}  // namespace

WindowLayout::WindowLayout(QSettings& settings, QMainWindow& window, CodeArea& code)
    : settings_(settings), window_(window), code_(code) {}

void WindowLayout::SetTheme(Theme::Choice choice) {
  theme_.Apply(choice);
  settings_.setValue(kTheme, static_cast<int>(choice));
}

void WindowLayout::Restore() {
  const int theme = settings_.value(kTheme).toInt();
  if (theme >= 0 && theme <= static_cast<int>(Theme::Choice::Dark)) theme_.Apply(static_cast<Theme::Choice>(theme));
  window_.restoreGeometry(settings_.value(kGeometry).toByteArray());
  window_.restoreState(settings_.value(kState).toByteArray());
  code_.SetTabs(settings_.value(kTabs, true).toBool());
  code_.SetTextSize(settings_.value(kTextSize, CodeArea::NormalTextSize()).toInt());
}

void WindowLayout::Save() {
  settings_.setValue(kGeometry, window_.saveGeometry());
  settings_.setValue(kState, window_.saveState());
  settings_.setValue(kTabs, code_.HasTabs());
  settings_.setValue(kTextSize, code_.TextSize());
  settings_.sync();
}

}  // namespace quorvane::desktop

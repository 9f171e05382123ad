#include "desktop/controls/MenuView.h"

#include <QCursor>
#include <QMenu>
#include <memory>

#include "desktop/platform/QtText.h"
#include "platform/forms/Menu.h"

namespace quorvane::desktop {

namespace {

/// Some captions come with a line break at their end.
QString CaptionOf(const forms::Menu& item) {
  QString caption = ToQString(item.Caption());
  while (caption.endsWith(QLatin1Char('\n')) || caption.endsWith(QLatin1Char('\r'))) caption.chop(1);
  return caption;
}

void AddItem(QMenu& shown, const std::shared_ptr<forms::Menu>& item) {
  if (item->IsSeparator()) {
    shown.addSeparator();
    return;
  }
  QAction* action = shown.addAction(CaptionOf(*item));
  action->setEnabled(item->Enabled());
  action->setVisible(item->Visible());
  action->setCheckable(item->Checked());
  action->setChecked(item->Checked());
  QObject::connect(action, &QAction::triggered, action, [item] { item->Press(); });
}

}  // namespace

MenuView::MenuView(forms::Menu& menu, QWidget& owner)
    : menu_(menu), shown_(&owner), popped_(menu.Popped.Subscribe([this] { Show(); })) {}

void MenuView::PopUpAt(const QPoint& place) {
  place_ = place;
  menu_.PopUp();
  place_.reset();
}

void MenuView::Show() {
  shown_.clear();
  for (const auto& item : menu_.Items()) AddItem(shown_, item);
  shown_.popup(place_.value_or(QCursor::pos()));
}

}  // namespace quorvane::desktop

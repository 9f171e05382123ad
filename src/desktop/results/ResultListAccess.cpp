#include "desktop/results/ResultListAccess.h"

#include "desktop/results/ResultListView.h"
#include "desktop/results/ResultRowAccess.h"
#include "platform/forms/OwnerDrawList.h"

namespace quorvane::desktop {

namespace {

QAccessibleInterface* Make(const QString&, QObject* object) {
  auto* view = dynamic_cast<ResultListView*>(object);
  return view != nullptr ? new ResultListAccess(*view) : nullptr;
}

}  // namespace

void ResultListAccess::Install() {
  static const bool installed = [] {
    QAccessible::installFactory(Make);
    return true;
  }();
  static_cast<void>(installed);
}

void ResultListAccess::TellSelected(ResultListView& view) {
  if (!QAccessible::isActive() || view.Model().ListIndex() < 0) return;
  QAccessibleEvent event(&view, QAccessible::Focus);
  event.setChild(view.Model().ListIndex());
  QAccessible::updateAccessibility(&event);
}

ResultListAccess::ResultListAccess(ResultListView& view) : QAccessibleWidget(&view, QAccessible::List), view_(view) {}

ResultListAccess::~ResultListAccess() {
  for (const auto& [row, id] : rows_) QAccessible::deleteAccessibleInterface(id);
}

int ResultListAccess::childCount() const {
  return view_.Model().ListCount();
}

QAccessibleInterface* ResultListAccess::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  const auto [row, isNew] = rows_.try_emplace(index, 0);
  if (isNew) row->second = QAccessible::registerAccessibleInterface(new ResultRowAccess(view_, index));
  return QAccessible::accessibleInterface(row->second);
}

QAccessibleInterface* ResultListAccess::childAt(int x, int y) const {
  const QPoint place = view_.viewport()->mapFromGlobal(QPoint(x, y));
  return view_.viewport()->rect().contains(place) ? child(view_.RowAt(place.x(), place.y())) : nullptr;
}

QAccessibleInterface* ResultListAccess::focusChild() const {
  return view_.hasFocus() ? child(view_.Model().ListIndex()) : nullptr;
}

int ResultListAccess::indexOfChild(const QAccessibleInterface* child) const {
  const auto* row = dynamic_cast<const ResultRowAccess*>(child);
  return row != nullptr ? row->Row() : -1;
}

}  // namespace quorvane::desktop

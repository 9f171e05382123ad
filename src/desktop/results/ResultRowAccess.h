#pragma once

#include <QAccessibleInterface>
#include <QPointer>

namespace quorvane::desktop {

class ResultListView;

/// One row of the result list as a screen reader has it; valid while the list has that row.
class ResultRowAccess final : public QAccessibleInterface {
 public:
  /// `row` is 0-based.
  ResultRowAccess(ResultListView& view, int row);

  int Row() const { return row_; }

  bool isValid() const override;
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QString text(QAccessible::Text text) const override;
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override;
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QAccessible::State state() const override;

 private:
  QPointer<QObject> alive_;
  ResultListView& view_;
  int row_;
};

}  // namespace quorvane::desktop

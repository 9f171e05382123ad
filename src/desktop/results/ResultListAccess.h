#pragma once

#include <QAccessibleWidget>
#include <map>

namespace quorvane::desktop {

class ResultListView;

/// The result list as a screen reader has it: a list with an item a row, named by the row's text, whatever their
/// number; an item is made when somebody asks for it.
class ResultListAccess final : public QAccessibleWidget {
 public:
  /// From now on the toolkit finds this for each result list.
  static void Install();
  /// Tells the screen reader that the selected row is another.
  static void TellSelected(ResultListView& view);

  explicit ResultListAccess(ResultListView& view);
  ~ResultListAccess() override;

  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;

 private:
  ResultListView& view_;
  mutable std::map<int, QAccessible::Id> rows_;  ///< those that were asked for; the toolkit owns the items
};

}  // namespace quorvane::desktop

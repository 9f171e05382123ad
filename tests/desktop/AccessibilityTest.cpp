#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QListView>
#include <QTreeWidget>
#include <map>

#include "SearchWindowsFixture.h"
#include "desktop/navigate/ProcedureBar.h"
#include "desktop/results/ResultListView.h"
#include "desktop/results/TabBarView.h"
#include "desktop/review/ChangesView.h"
#include "desktop/shell/GoMenu.h"
#include "desktop/shell/ProjectTree.h"

namespace quorvane::desktop {
namespace {

class AccessibilityTest : public SearchWindowsTest {};

QAccessibleInterface& Access(QWidget& widget) {
  QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&widget);
  return found != nullptr ? *found : throw std::runtime_error("a screen reader does not see it");
}

TEST_F(AccessibilityTest, EachPartIsWhatItLooksLike) {
  StartWithGroup();
  CodeEdit& editor = EditorOf(u"modMain");
  Search(QStringLiteral("order"));
  Window().ChangesDock().show();
  ProcedureBar& bar = *Window().Go().Bars().Current();
  const std::pair<QWidget*, QAccessible::Role> parts[] = {
      {&Window(), QAccessible::Window},
      {&Window().Tree().Tree(), QAccessible::Tree},
      {&editor, QAccessible::EditableText},
      {&bar.Objects(), QAccessible::ComboBox},
      {&bar.Procedures(), QAccessible::ComboBox},
      {&List(), QAccessible::List},
      {&Results().Bar(), QAccessible::PageTabList},
      {&Window().Changes().List(), QAccessible::List},
      {&WidgetOf(*Dialog().cmbSearch), QAccessible::ComboBox},
      {&WidgetOf(*Dialog().cmdSearch), QAccessible::PushButton},
      {&WidgetOf(*Dialog().chkMatchCase), QAccessible::CheckBox},
      {&WidgetOf(*Dialog().optAreaButtons[0]), QAccessible::RadioButton},
  };
  for (const auto& [widget, role] : parts) {
    EXPECT_EQ(Access(*widget).role(), role) << Access(*widget).text(QAccessible::Name).toStdString();
    QAccessibleInterface* top = &Access(*widget);
    while (top->parent() != nullptr) top = top->parent();
    EXPECT_EQ(top->role(), QAccessible::Application) << "the way up from it ends at the program";
  }
}

TEST_F(AccessibilityTest, RowsOfTheResultsAreItemsOfAList) {
  StartWithGroup();
  Search(QStringLiteral("order"));
  QAccessibleInterface& list = Access(List());
  const int count = List().Model().ListCount();
  ASSERT_GT(count, 10);
  EXPECT_EQ(list.childCount(), count);
  for (int row = 0; row < count; ++row) {
    QAccessibleInterface* item = list.child(row);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->role(), QAccessible::ListItem);
    EXPECT_EQ(FromQString(item->text(QAccessible::Name)), List().Model().List(row));
    EXPECT_EQ(list.indexOfChild(item), row);
    EXPECT_EQ(item->parent(), &list);
  }
  ClickRow(2, false);
  Dialog().Hide();
  QApplication::setActiveWindow(&Window());
  List().setFocus();
  EXPECT_TRUE(list.child(2)->state().selected);
  EXPECT_FALSE(list.child(1)->state().selected);
  EXPECT_EQ(list.focusChild(), list.child(2));
  const QPoint middle = list.child(2)->rect().center();
  EXPECT_EQ(list.childAt(middle.x(), middle.y()), list.child(2));
  EXPECT_EQ(list.child(count), nullptr);
}

}  // namespace
}  // namespace quorvane::desktop

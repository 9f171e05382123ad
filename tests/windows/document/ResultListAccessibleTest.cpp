#include "ResultDocumentFixture.h"
#include "windows/com/Bstr.h"
//
#include <oleacc.h>

namespace quorvane::test {

using com::Bstr;
using com::ComPtr;

namespace {

VARIANT Child(LONG id) {
  VARIANT child{};
  child.vt = VT_I4;
  child.lVal = id;
  return child;
}

}  // namespace

class ResultListAccessibleTest : public ResultDocumentTest {
 protected:
  /// As a screen reader gets at it: by a message to the window.
  void SetUp() override {
    Activate(true);
    MakeRows(100);
    ASSERT_EQ(
        ::AccessibleObjectFromWindow(ListHandle(), static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, list_.PutVoid()),
        S_OK);
  }

  std::string Name(LONG id) {
    Bstr name;
    return list_->get_accName(Child(id), name.Put()) == S_OK ? ToUtf8(name.Text()) : "none";
  }
  LONG Role(LONG id) {
    return Number([&](VARIANT* value) { return list_->get_accRole(Child(id), value); });
  }
  LONG State(LONG id) {
    return Number([&](VARIANT* value) { return list_->get_accState(Child(id), value); });
  }
  LONG Navigate(LONG way, LONG from) {
    return Number([&](VARIANT* value) { return list_->accNavigate(way, Child(from), value); });
  }
  LONG Focus() {
    return Number([&](VARIANT* value) { return list_->get_accFocus(value); });
  }
  LONG Selection() {
    return Number([&](VARIANT* value) { return list_->get_accSelection(value); });
  }

  ComPtr<IAccessible> list_;

 private:
  template <class Call>
  static LONG Number(Call call) {
    VARIANT value{};
    return call(&value) == S_OK && value.vt == VT_I4 ? value.lVal : -1;
  }
};

TEST_F(ResultListAccessibleTest, TellsListAndRows) {
  LONG count = 0;
  EXPECT_EQ(list_->get_accChildCount(&count), S_OK);
  EXPECT_EQ(count, 100);
  EXPECT_EQ(Name(CHILDID_SELF), "Search1");
  EXPECT_EQ(Name(1), "row 0");
  EXPECT_EQ(Name(100), "row 99");
  EXPECT_EQ(Name(101), "none");
  EXPECT_EQ(Role(CHILDID_SELF), ROLE_SYSTEM_LIST);
  EXPECT_EQ(Role(7), ROLE_SYSTEM_LISTITEM);
  EXPECT_EQ(Role(-1), -1);
  EXPECT_EQ(Navigate(NAVDIR_LASTCHILD, CHILDID_SELF), 100);
  EXPECT_EQ(Navigate(NAVDIR_NEXT, 99), 100);
  EXPECT_EQ(Navigate(NAVDIR_NEXT, 100), -1);
  EXPECT_EQ(Navigate(NAVDIR_PREVIOUS, 1), -1);

  LONG left = 0;
  LONG top = 0;
  LONG width = 0;
  LONG height = 0;
  EXPECT_EQ(list_->accLocation(&left, &top, &width, &height, Child(3)), S_OK);
  EXPECT_EQ(height, RectOf(2).bottom - RectOf(2).top);
  VARIANT hit{};
  EXPECT_EQ(list_->accHitTest(left + 5, top + 1, &hit), S_OK);
  EXPECT_EQ(hit.lVal, 3);
  EXPECT_EQ(list_->accHitTest(left - 5, top + 1, &hit), S_FALSE);
}

TEST_F(ResultListAccessibleTest, FollowsAndMovesTheSelection) {
  constexpr LONG kChosen = STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED;
  EXPECT_EQ(Focus(), CHILDID_SELF);
  EXPECT_EQ(Selection(), -1);
  EXPECT_EQ(State(CHILDID_SELF) & STATE_SYSTEM_FOCUSED, STATE_SYSTEM_FOCUSED);
  EXPECT_EQ(list_->accSelect(SELFLAG_TAKESELECTION, Child(90)), S_OK);
  EXPECT_EQ(world.List().ListIndex(), 89);
  EXPECT_EQ(Selection(), 90);
  EXPECT_EQ(Focus(), 90);
  EXPECT_EQ(State(90) & (kChosen | STATE_SYSTEM_OFFSCREEN), kChosen);
  EXPECT_EQ(State(1) & (kChosen | STATE_SYSTEM_OFFSCREEN), STATE_SYSTEM_OFFSCREEN);
  EXPECT_EQ(list_->accSelect(SELFLAG_ADDSELECTION, Child(1)), E_INVALIDARG);

  EXPECT_EQ(world.Search(u"total"), "");
  EXPECT_EQ(list_->accDoDefaultAction(Child(2)), S_OK);
  EXPECT_EQ(world.Selection(), "Plan 3,3-3,8");
}

TEST_F(ResultListAccessibleTest, AnswersNothingWhenTheListHasGone) {
  world.Pages().mcolPages->RemoveAll();
  LONG count = -1;
  EXPECT_EQ(list_->get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(Name(1), "none");
}

}  // namespace quorvane::test

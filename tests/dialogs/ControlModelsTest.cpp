#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "DialogWorld.h"
#include "base/Text.h"
#include "support/ErrorOf.h"

namespace quorvane {
namespace {

using test::ErrorOf;
using Log = std::vector<std::string>;

/// A combo box that writes down its events with its state: text, picked entry, selection.
class ComboTest : public testing::Test {
 protected:
  ComboTest() {
    for (const char16_t* item : {u"one", u"two", u"three"}) combo.AddItem(item);
    onChange_ = combo.Change.Subscribe([this] { log.push_back("change " + State()); });
    onClick_ = combo.Click.Subscribe([this] { log.push_back("click " + State()); });
  }
  std::string State() const {
    return ToUtf8(combo.Text()) + " " + std::to_string(combo.ListIndex()) + " " + std::to_string(combo.SelStart()) +
           "+" + std::to_string(combo.SelLength());
  }

  ComboBox combo;
  Log log;

 private:
  Subscription onChange_;
  Subscription onClick_;
};

TEST_F(ComboTest, EventsOfTextAndList) {
  combo.SetText(u"abc");
  combo.SetText(u"abc");
  combo.Edit(u"abcd", 4, 0);
  combo.Edit(u"abcd", 1, 9);  // the caret alone has moved
  EXPECT_EQ(State(), "abcd -1 1+3");
  combo.Pick(1);
  combo.Pick(1);
  combo.Pick(7);
  combo.AddItem(u"zero", 0);
  EXPECT_EQ(State(), "two 2 0+0");
  combo.RemoveItem(0);
  combo.RemoveItem(2);
  EXPECT_EQ(State(), "two 1 0+0") << "the picked entry keeps its mark when others come and go";
  combo.RemoveItem(1);
  combo.SetListIndex(0);
  combo.Edit(u"oneself", 7, 0);
  combo.Clear();
  EXPECT_EQ(log, (Log{"change abc -1 0+0", "change abcd -1 4+0", "click two 1 0+0", "click two 1 0+0", "change  -1 0+0",
                      "click one 0 0+0", "change oneself -1 7+0", "change  -1 0+0"}));
  EXPECT_EQ(combo.ListCount(), 0);
}

TEST_F(ComboTest, SelectionStaysInsideTheText) {
  combo.SetText(u"abcd");
  combo.SetSelStart(2);
  combo.SetSelLength(9);
  EXPECT_EQ(State(), "abcd -1 2+2");
  combo.SetSelStart(99);
  EXPECT_EQ(State(), "abcd -1 4+0");
  EXPECT_EQ(ErrorOf([&] { combo.SetSelStart(-1); }), 380);
  EXPECT_EQ(ErrorOf([&] { combo.SetSelLength(-1); }), 380);
  EXPECT_EQ(ErrorOf([&] { combo.RemoveItem(3); }), 5);
  EXPECT_EQ(ErrorOf([&] { combo.AddItem(u"", 4); }), 5);
  EXPECT_EQ(ErrorOf([&] { combo.SetListIndex(3); }), 380);
}

TEST_F(ComboTest, ADisabledBoxTakesNoInput) {
  int drops = 0;
  const auto onDrop = combo.OLEDragDrop.Subscribe([&](const DataObject&) { ++drops; });
  combo.Drop(test::Dragged(u"x"));
  combo.SetEnabled(false);
  combo.Drop(test::Dragged(u"x"));
  combo.Edit(u"typed", 0, 0);
  combo.Pick(0);
  EXPECT_EQ(drops, 1);
  EXPECT_EQ(State(), " -1 0+0");
  combo.SetText(u"by program");
  EXPECT_EQ(log, (Log{"change by program -1 0+0"}));
}

TEST(CheckBoxTest, RaisesClickForEveryOtherValue) {
  CheckBox box;
  std::string values;
  const auto onClick = box.Click.Subscribe([&] { values += std::to_string(box.Value()); });
  box.Press();
  box.Press();
  box.SetValue(2);
  box.SetValue(2);
  box.Press();
  EXPECT_EQ(values, "1020");
  EXPECT_EQ(ErrorOf([&] { box.SetValue(3); }), 380);
  box.SetEnabled(false);
  box.Press();
  EXPECT_EQ(box.Value(), 0);
}

TEST(OptionButtonTest, AGroupHasOneSetButtonAndTellsAllOfThem) {
  OptionGroup group;
  OptionButton a(group, 3);
  OptionButton b(group, 0);
  EXPECT_EQ(ErrorOf([&] { OptionButton(group, 3); }), 457);
  Log log;
  const auto onClick =
      group.Click.Subscribe([&](std::int16_t index) { log.push_back("click " + std::to_string(index)); });
  const auto onA = a.Changed.Subscribe([&] { log.push_back(a.Value() ? "a set" : "a clear"); });
  const auto onB = b.Changed.Subscribe([&] { log.push_back(b.Value() ? "b set" : "b clear"); });
  a.Press();
  a.Press();
  group.SetValue(0, true);
  EXPECT_EQ(log, (Log{"a set", "b clear", "click 3", "a clear", "b set", "click 0"}));
}

TEST(AccessKeyTest, IsMarkedInTheCaption) {
  EXPECT_EQ(AccessKey(u"Rep&lace"), u'l');
  EXPECT_EQ(AccessKey(u"&Find"), u'f');
  EXPECT_EQ(AccessKey(u"a && &B"), u'b');
  EXPECT_EQ(AccessKey(u"a &&b"), 0);
  EXPECT_EQ(AccessKey(u"end &"), 0);
  EXPECT_EQ(AccessKey(u""), 0);
}

}  // namespace
}  // namespace quorvane

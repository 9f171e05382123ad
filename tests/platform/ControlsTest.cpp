#include <gtest/gtest.h>

#include "platform/forms/Control.h"
#include "platform/forms/Controls.h"
#include "platform/forms/OwnerDrawList.h"
#include "support/Raised.h"

namespace quorvane {
namespace {

using test::Raised;

TEST(ControlsTest, MakesByProgIdAndKeepsByName) {
  forms::Controls controls;
  controls.Register(u"VB.Label", [] { return std::make_shared<forms::Control>(); });
  const auto one = controls.Add(u"vb.label", u"mobjLabelSearch1");
  const auto two = controls.Add(u"VB.Label", u"mobjLabelSearch2");
  EXPECT_FALSE(one->Visible());
  EXPECT_EQ(one->Name(), u"mobjLabelSearch1");
  EXPECT_EQ(controls.All(), (std::vector<std::shared_ptr<forms::Control>>{one, two}));
  EXPECT_EQ(Raised([&] { controls.Add(u"VB.Label", u"MOBJLABELSEARCH1"); }), 727);
  EXPECT_EQ(Raised([&] { controls.Add(u"VB.Other", u"x"); }), 429);

  bool gone = false;
  const Subscription removed = controls.Removed.Subscribe([&](forms::Control& c) { gone = &c == one.get(); });
  controls.Remove(u"mobjlabelsearch1");
  EXPECT_TRUE(gone);
  EXPECT_EQ(controls.All(), (std::vector<std::shared_ptr<forms::Control>>{two}));
  EXPECT_EQ(Raised([&] { controls.Remove(u"mobjLabelSearch1"); }), 730);
  EXPECT_EQ(Raised([&] { controls.Item(u"mobjLabelSearch1"); }), 730);
}

TEST(OwnerDrawListTest, TellsItsViewOfWhatChanges) {
  forms::OwnerDrawList list;
  std::string told;
  const Subscription rows =
      list.RowsChanged.Subscribe([&] { told += "rows " + std::to_string(list.ListCount()) + ";"; });
  const Subscription state = list.Changed.Subscribe([&] { told += "state " + std::to_string(list.ListIndex()) + ";"; });
  list.AddItem(u"a", 7);
  list.AddItem(u"b", 8);
  for (int twice = 0; twice < 2; ++twice) list.SetListIndex(1);
  for (int twice = 0; twice < 2; ++twice) list.SetHorizontalExtent(90);
  list.Clear();
  EXPECT_EQ(told, "rows 1;rows 2;state 1;state 1;rows 0;");
  EXPECT_EQ(list.ListIndex(), -1);
}

}  // namespace
}  // namespace quorvane

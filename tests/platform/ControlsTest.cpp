#include <gtest/gtest.h>

#include "platform/forms/Control.h"
#include "platform/forms/Controls.h"
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

}  // namespace
}  // namespace quorvane

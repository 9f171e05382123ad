#include <gtest/gtest.h>

#include "base/Text.h"
#include "platform/forms/Tab.h"
#include "platform/forms/TabControl.h"
#include "support/Raised.h"

namespace quorvane {
namespace {

using test::Raised;

class TabControlTest : public testing::Test {
 protected:
  std::shared_ptr<forms::Tab> Add(const std::u16string& key, std::u16string_view before = {}) {
    auto tab = bar_.Add(key, before, key, -1);
    auto panel = std::make_shared<forms::Control>();
    tab->SetPanel(panel);
    return tab;
  }
  /// The keys in order; the selected one in brackets, those with a visible panel behind a star.
  std::string Bar() const {
    std::string text;
    for (const auto& tab : bar_.Tabs()) {
      const std::string key = (tab->Panel()->Visible() ? "*" : "") + ToUtf8(tab->Key());
      text += tab->Selected() ? "[" + key + "]" : key;
      text += ' ';
    }
    return text;
  }

  forms::TabControl bar_;
  std::string events_;
  Subscription onSelected_ =
      bar_.TabSelected.Subscribe([this](const auto& tab) { events_ += "selected " + ToUtf8(tab->Key()) + ";"; });
  Subscription onDown_ = bar_.TabMouseDown.Subscribe([this](const auto& tab, auto button, auto, auto, auto) {
    events_ += "down " + ToUtf8(tab->Key()) + " " + std::to_string(button) + ";";
  });
  Subscription onDouble_ =
      bar_.TabDoubleClick.Subscribe([this](const auto& tab) { events_ += "double " + ToUtf8(tab->Key()) + ";"; });
  Subscription onClose_ =
      bar_.TabClose.Subscribe([this](const auto& tab, bool&) { events_ += "close " + ToUtf8(tab->Key()) + ";"; });
  Subscription onBar_ = bar_.BarMouseDown.Subscribe(
      [this](auto button, auto, auto, auto) { events_ += "bar " + std::to_string(button) + ";"; });
};

TEST_F(TabControlTest, OneTabIsSelectedAndItsPanelAloneIsVisible) {
  Add(u"new");
  const auto a = Add(u"a", u"NEW");
  Add(u"b", u"new");
  EXPECT_EQ(Bar(), "a b [*new] ");
  a->Select();
  a->Select();
  EXPECT_EQ(Bar(), "[*a] b new ");
  bar_.Remove(u"A");
  EXPECT_EQ(Bar(), "[*b] new ");
  EXPECT_FALSE(a->Panel()->Visible());
  EXPECT_EQ(Raised([&] { a->Select(); }), 91);
  bar_.Remove(2);
  EXPECT_EQ(Bar(), "[*b] ");
  const auto last = bar_.Item(1);
  bar_.Remove(1);
  EXPECT_EQ(bar_.SelectedTab(), nullptr);
  EXPECT_FALSE(last->Panel()->Visible());
  EXPECT_EQ(events_, "selected new;selected a;selected b;");
}

TEST_F(TabControlTest, WhenTheSelectedTabGoesTheNextOneTakesItsPlace) {
  for (const auto* key : {u"a", u"b", u"c"}) Add(key);
  bar_.Item(u"b")->Select();
  bar_.Remove(u"b");
  EXPECT_EQ(Bar(), "a [*c] ");
  bar_.Remove(u"c");
  EXPECT_EQ(Bar(), "[*a] ");
}

TEST_F(TabControlTest, KeysAndPositionsThatAreNotThere) {
  Add(u"a");
  EXPECT_EQ(Raised([&] { Add(u"A"); }), 457);
  EXPECT_EQ(Raised([&] { Add(u"b", u"zz"); }), 5);
  EXPECT_EQ(Raised([&] { bar_.Item(u"b"); }), 5);
  EXPECT_EQ(Raised([&] { bar_.Remove(0); }), 9);
  EXPECT_EQ(Raised([&] { bar_.Remove(2); }), 9);
  EXPECT_EQ(Bar(), "[*a] ");
}

TEST_F(TabControlTest, GesturesSelectTellAndClose) {
  const auto a = Add(u"a");
  const auto b = Add(u"b");
  b->SetCanClose(false);
  events_.clear();
  bar_.PressTab(b, 1, 0, 0, 0);
  bar_.PressTab(a, 2, 0, 0, 0);
  bar_.DoubleClickTab(a);
  bar_.PressBar(2, 0, 0, 0);
  bar_.PressClose(b);  // cannot be closed
  EXPECT_EQ(Bar(), "a [*b] ");
  bar_.PressClose(a);
  EXPECT_EQ(Bar(), "[*b] ");
  bar_.PressTab(a, 1, 0, 0, 0);  // no longer on the bar
  EXPECT_EQ(events_, "selected b;down b 1;down a 2;double a;bar 2;close a;");
}

TEST_F(TabControlTest, ADisabledBarIgnoresTheUserButNotTheCode) {
  const auto a = Add(u"a");
  const auto b = Add(u"b");
  events_.clear();
  bar_.SetEnabled(false);
  bar_.PressTab(b, 1, 0, 0, 0);
  bar_.DoubleClickTab(b);
  bar_.PressClose(b);
  bar_.PressBar(1, 0, 0, 0);
  EXPECT_EQ(events_, "");
  b->Select();
  EXPECT_EQ(Bar(), "a [*b] ");
}

TEST_F(TabControlTest, AHandlerMayCancelTheClosingOrRemoveTheTabItself) {
  const auto a = Add(u"a");
  Add(u"b");
  bool cancelled = true;
  const Subscription cancel = bar_.TabClose.Subscribe([&](const auto&, bool& c) { c = cancelled; });
  bar_.PressClose(a);
  EXPECT_EQ(Bar(), "[*a] b ");
  cancelled = false;
  const Subscription remove = bar_.TabClose.Subscribe([&](const auto& tab, bool&) { bar_.Remove(tab->Key()); });
  bar_.PressClose(a);
  EXPECT_EQ(Bar(), "[*b] ");
}

TEST_F(TabControlTest, ATabOutlivesItsControl) {
  auto bar = std::make_unique<forms::TabControl>();
  const auto tab = bar->Add(u"a", u"", u"a", 0);
  bar.reset();
  tab->SetCaption(u"x");
  EXPECT_FALSE(tab->Selected());
  EXPECT_EQ(Raised([&] { tab->Select(); }), 91);
}

}  // namespace
}  // namespace quorvane

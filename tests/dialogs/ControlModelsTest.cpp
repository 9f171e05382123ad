#include <gtest/gtest.h>

#include <algorithm>

#include "DialogWorld.h"
#include "platform/forms/RichTextBox.h"
#include "platform/forms/TabStrip.h"
#include "platform/forms/TextBox.h"
#include "support/Seed.h"

namespace quorvane {
namespace {

using test::Raised;
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

  forms::ComboBox combo;
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
  EXPECT_EQ(Raised([&] { combo.SetSelStart(-1); }), 380);
  EXPECT_EQ(Raised([&] { combo.SetSelLength(-1); }), 380);
  EXPECT_EQ(Raised([&] { combo.RemoveItem(3); }), 5);
  EXPECT_EQ(Raised([&] { combo.AddItem(u"", 4); }), 5);
  EXPECT_EQ(Raised([&] { combo.SetListIndex(3); }), 380);
}

TEST_F(ComboTest, ADisabledBoxTakesNoInput) {
  int drops = 0;
  const auto onDrop = combo.OLEDragDrop.Subscribe([&](const forms::DataObject&) { ++drops; });
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
  forms::CheckBox box;
  std::string values;
  const auto onClick = box.Click.Subscribe([&] { values += std::to_string(box.Value()); });
  box.Press();
  box.Press();
  box.SetValue(2);
  box.SetValue(2);
  box.Press();
  EXPECT_EQ(values, "1020");
  EXPECT_EQ(Raised([&] { box.SetValue(3); }), 380);
  box.SetEnabled(false);
  box.Press();
  EXPECT_EQ(box.Value(), 0);
}

TEST(OptionButtonTest, AGroupHasOneSetButtonAndTellsAllOfThem) {
  forms::OptionGroup group;
  forms::OptionButton a(group, 3);
  forms::OptionButton b(group, 0);
  EXPECT_EQ(Raised([&] { forms::OptionButton(group, 3); }), 457);
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
  EXPECT_EQ(forms::AccessKey(u"Rep&lace"), u'l');
  EXPECT_EQ(forms::AccessKey(u"&Find"), u'f');
  EXPECT_EQ(forms::AccessKey(u"a && &B"), u'b');
  EXPECT_EQ(forms::AccessKey(u"a &&b"), 0);
  EXPECT_EQ(forms::AccessKey(u"end &"), 0);
  EXPECT_EQ(forms::AccessKey(u""), 0);
}

/// One character of a text with its look: the naive twin of a rich text box.
struct Cell {
  char16_t c;
  Color color;
  bool operator==(const Cell&) const = default;
};

std::vector<Cell> CellsOf(const forms::RichTextBox& box) {
  std::vector<Cell> cells;
  const forms::RichTextBox::Run* before = nullptr;
  for (const auto& run : box.Runs()) {
    EXPECT_EQ(static_cast<std::size_t>(run.Start), cells.size());
    EXPECT_GT(run.Length, 0);
    EXPECT_EQ(run.StrikeThru, run.Color > 1);
    EXPECT_FALSE(before && before->Color == run.Color) << "not merged";
    for (std::int32_t i = 0; i < run.Length; ++i) cells.push_back({box.Text().at(cells.size()), run.Color});
    before = &run;
  }
  EXPECT_EQ(cells.size(), box.Text().size());
  return cells;
}

TEST(RichTextBoxTest, BehavesLikeOneLookForEachCharacter) {
  std::mt19937 random(test::NewSeed());
  const auto below = [&](std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(random); };
  forms::RichTextBox box;
  std::vector<Cell> cells;
  Color caret = 0;
  std::size_t start = 0;
  std::size_t length = 0;
  for (int step = 0; step < 5000 && !testing::Test::HasFailure(); ++step) {
    const std::size_t place = below(20);
    switch (below(4)) {
      case 0:
        box.SetSelStart(static_cast<std::int32_t>(place));
        start = std::min(place, cells.size());
        length = 0;
        if (!cells.empty()) caret = cells[start == 0 ? 0 : start - 1].color;
        break;
      case 1:
        box.SetSelLength(static_cast<std::int32_t>(place));
        length = std::min(place, cells.size() - start);
        break;
      case 2: {
        const Color color = static_cast<Color>(below(3));
        box.SetSelColor(color);
        box.SetSelStrikeThru(color > 1);
        if (length == 0) caret = color;
        for (std::size_t i = start; i < start + length; ++i) cells[i].color = color;
        break;
      }
      default: {
        const bool all = below(50) == 0;
        const std::u16string text(below(4), static_cast<char16_t>(u'a' + below(26)));
        caret = box.SelColor();
        all ? box.SetText(text) : box.SetSelText(text);
        if (all) start = 0;
        const auto from = cells.begin() + static_cast<std::ptrdiff_t>(start);
        const auto at = cells.erase(from, all ? cells.end() : from + static_cast<std::ptrdiff_t>(length));
        cells.insert(at, text.size(), Cell{text.empty() ? u' ' : text[0], caret});
        start = all ? 0 : start + text.size();
        length = 0;
      }
    }
    EXPECT_TRUE(CellsOf(box) == cells) << "step " << step;
    EXPECT_EQ(box.SelColor(), length > 0 ? cells[start].color : caret);
    EXPECT_EQ(box.SelText().size(), length);
    EXPECT_EQ(static_cast<std::size_t>(box.SelStart()), start);
  }
  EXPECT_EQ(Raised([&] { box.SetSelStart(-1); }), 380);
  EXPECT_EQ(Raised([&] { box.SetSelLength(-1); }), 380);
}

TEST(TextBoxTest, AnEditKeepsTheKindOfLineBreak) {
  forms::TextBox box(forms::TextBox::Lines::Many);
  int changes = 0;
  const auto onChange = box.Change.Subscribe([&] { ++changes; });
  for (const test::Row& row : test::Rows("dialogs/ControlModels.rows", "Breaks")) {
    box.SetText(row.Text(0));
    changes = 0;
    box.Edit(row.Text(1));
    EXPECT_EQ(ToUtf8(box.Text()), row.Bytes(2)) << row.Where();
    EXPECT_EQ(changes, row.Number(3)) << row.Where();
  }
  box.SetLocked(true);
  box.Edit(u"typed");
  EXPECT_EQ(ToUtf8(box.Text()), "\r\n\r\n");
}

/// A dialog with two tabs, a control of the same access key on each, and buttons for Enter and Esc.
class TabbedDialog final : public forms::Dialog {
 public:
  TabbedDialog() : Dialog(u"t") {
    frame->Add(first);
    frame->SetContainer(tabs->Panel(0));
    second->SetContainer(tabs->Panel(1));
    for (const auto& button : {first, second, cancel}) button->SetCaption(u"&x");
    cancel->SetCaption(u"no key");
    Controls().Place(u"frame", frame);
    Controls().Place(u"first", first);
    Controls().Place(u"second", second);
    Controls().Place(u"cancel", cancel);
    SetCancelButton(cancel);
  }

  const std::shared_ptr<forms::TabStrip> tabs = std::make_shared<forms::TabStrip>(std::int16_t{2});
  const std::shared_ptr<forms::Frame> frame = std::make_shared<forms::Frame>();
  const std::shared_ptr<forms::CommandButton> first = std::make_shared<forms::CommandButton>();
  const std::shared_ptr<forms::CommandButton> second = std::make_shared<forms::CommandButton>();
  const std::shared_ptr<forms::CommandButton> cancel = std::make_shared<forms::CommandButton>();
};

TEST(DialogTest, KeysReachOnlyWhatIsOnTheScreen) {
  const auto dialog = std::make_shared<TabbedDialog>();
  dialog->Show();
  std::string log;
  const auto onFirst = dialog->first->Click.Subscribe([&] { log += "1"; });
  const auto onSecond = dialog->second->Click.Subscribe([&] { log += "2"; });
  const auto onTab =
      dialog->tabs->Click.Subscribe([&](std::int16_t previous) { log += " from " + std::to_string(previous) + " "; });
  const auto onCancel = dialog->cancel->Click.Subscribe([&] {
    log += dialog->cancel->Value() ? " esc" : " no value";
    dialog->Unload();
  });
  dialog->PressAccessKey(u'x');
  dialog->tabs->Pick(1);
  dialog->tabs->Pick(1);
  dialog->PressAccessKey(u'x');
  dialog->PressAccessKey(u'x');
  EXPECT_EQ(Raised([&] { dialog->SetFocus(dialog->first); }), 5) << "on the other tab";
  EXPECT_EQ(Raised([&] { dialog->tabs->SetTab(2); }), 380);
  EXPECT_TRUE(dialog->PressKey(13, 0)) << "the button that has the focus";
  dialog->cancel->SetEnabled(false);
  EXPECT_FALSE(dialog->PressKey(27, 0));
  dialog->cancel->SetEnabled(true);
  EXPECT_TRUE(dialog->PressKey(27, 0));
  EXPECT_EQ(log, "1 from 0 222 esc");
  EXPECT_FALSE(dialog->Loaded());
  EXPECT_FALSE(dialog->cancel->Value());
}

TEST(ButtonTest, MayGoDuringItsOwnClick) {
  auto button = std::make_shared<forms::CommandButton>();
  bool during = false;
  Subscription onClick = button->Click.Subscribe([&] {
    during = button->Value();
    button.reset();
  });
  button.get()->Press();
  EXPECT_TRUE(during);
  EXPECT_EQ(button, nullptr);
}

}  // namespace
}  // namespace quorvane

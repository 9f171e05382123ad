#include <gtest/gtest.h>

#include <map>

#include "base/Text.h"
#include "chordtrap/ChordTrapControl.h"
#include "chordtrap/ICommandTarget.h"
#include "chordtrap/Manager.h"
#include "support/Raised.h"

namespace quorvane::test {

using namespace chordtrap;

/// A target that writes down its calls, and a keeper with its texts in a map.
class ManagerTest : public ::testing::Test, protected ICommandTarget, protected IChordTrapKeeper {
 protected:
  ManagerTest() {
    manager.Items().Add(u"Open", *this, u"Open", 81, kCtrl);
    manager.Items().Add(u"Next", *this, u"Next", 190, kCtrl);
    manager.Items().Add(u"Silent", *this, u"Silent", 0, 0);
    manager.Start();
  }

  void Invoke(std::u16string_view name) override {
    calls += ToUtf8(name) + " ";
    if (name == failing) RaiseError(ErrorNumber::ObjectNotSet);
  }
  void SaveHotkey(const KeeperInfo&, const std::u16string& name, const std::u16string& value) override {
    if (name == failing) RaiseError(ErrorNumber::InvalidProcedureCall);
    kept[name] = value;
  }
  std::u16string LoadHotkey(const KeeperInfo&, const std::u16string& name, const std::u16string& usual) override {
    const auto found = kept.find(name);
    return found == kept.end() ? usual : found->second;
  }

  std::u16string Keys() {
    std::u16string keys;
    for (const auto& item : manager.Items()) keys += KeyText(item->Key) + u"|";
    return keys;
  }

  Manager manager;
  std::string calls;
  std::u16string failing;
  std::map<std::u16string, std::u16string> kept;
};

TEST_F(ManagerTest, KeysWorkFromStartToStop) {
  EXPECT_TRUE(manager.KeyDown(81, kCtrl));
  EXPECT_FALSE(manager.KeyDown(81, kCtrl | kShift)) << "another chord";
  EXPECT_FALSE(manager.KeyDown(0, 0)) << "no key reaches the command without a key";
  EXPECT_EQ(calls, "Open ");
  manager.Stop();
  EXPECT_FALSE(manager.KeyDown(81, kCtrl));
  EXPECT_EQ(calls, "Open ");
}

TEST_F(ManagerTest, BeforeProcessCanHoldAKeyBack) {
  bool forbid = true;
  const Subscription asked =
      manager.BeforeProcess.Subscribe([&](std::int32_t code, const KeyState& state, bool& cancel) {
        calls += "asked:" + std::to_string(code) + (state.Ctrl ? "C" : "") + (state.Shift ? "S" : "") + " ";
        cancel = forbid;
      });
  EXPECT_FALSE(manager.KeyDown(190, kCtrl)) << "the host gets the key";
  forbid = false;
  EXPECT_TRUE(manager.KeyDown(190, kCtrl));
  EXPECT_FALSE(manager.KeyDown(65, kCtrl)) << "a key of no command asks nobody";
  EXPECT_EQ(calls, "asked:190C asked:190C Next ");
}

TEST_F(ManagerTest, AFailingCommandRaises) {
  failing = u"Next";
  EXPECT_EQ(Raised([&] { manager.KeyDown(190, kCtrl); }), 91);
  EXPECT_EQ(Raised([&] { manager.Items().Add(u"x", *this, u"Open", 0, 0); }), 457);
  EXPECT_EQ(Raised([&] { manager.Items().Add(u"x", *this, u"New", 81, 64); }), 5);
  EXPECT_EQ(manager.Items().Count(), 3);
}

TEST_F(ManagerTest, KeepsAndTakesKeysAsText) {
  kept = {{u"Open", u"Alt+F3"}, {u"Next", u""}};
  manager.Load(*this);
  EXPECT_EQ(Keys(), u"Alt+F3|||");
  failing = u"Open";
  kept.clear();
  manager.Items()[3]->Key = {112, kShift};
  EXPECT_EQ(Raised([&] { manager.Save(*this); }), 5) << "the refusal is told";
  EXPECT_EQ(kept, (std::map<std::u16string, std::u16string>{{u"Next", u""}, {u"Silent", u"Shift+F1"}}))
      << "and the others are kept all the same";
}

TEST_F(ManagerTest, ADamagedTextIsNamed) {
  kept = {{u"Open", u"F2"}, {u"Next", u"Ctrl+Nonsense"}};
  EXPECT_EQ(Raised([&] { manager.Load(*this); }), "13 Type mismatch: Next = \"Ctrl+Nonsense\"");
  EXPECT_EQ(Keys(), u"F2|Ctrl+.||");
}

class ChordTrapControlTest : public ManagerTest {
 protected:
  /// One edit with the keyboard and the mouse.
  void Give(std::int32_t row, const KeyChord& chord) {
    editor.Select(row);
    editor.Press(chord);
    editor.Add();
  }

  ChordTrapControl editor;
};

TEST_F(ChordTrapControlTest, EditsAreInForceAtOnceUntilReverted) {
  manager.Revert();  // no edit has begun
  editor.Attach(manager);
  Give(3, {112, kCtrl});
  EXPECT_TRUE(manager.KeyDown(112, kCtrl));
  editor.Select(1);
  editor.Remove();
  EXPECT_FALSE(editor.CanRemove());
  EXPECT_EQ(Keys(), u"|Ctrl+.|Ctrl+F1|");
  editor.Detach();
  EXPECT_EQ(editor.Count(), 0);
  manager.Revert();
  EXPECT_EQ(Keys(), u"Ctrl+Q|Ctrl+.||");

  editor.Attach(manager);
  Give(1, {113, 0});
  editor.Detach();
  editor.Attach(manager);  // what was kept before is no edit any more
  Give(2, {114, 0});
  manager.Revert();
  EXPECT_EQ(Keys(), u"F2|Ctrl+.||");
  Give(2, {114, 0});  // no edit is open any more
  manager.Revert();
  EXPECT_EQ(Keys(), u"F2|F3||");
}

TEST_F(ChordTrapControlTest, RefusesWhatCannotBeAHotkey) {
  editor.Attach(manager);
  EXPECT_EQ(editor.Description(3) + u"," + editor.Key(3), u"Silent,");
  editor.Press({65, kCtrl});
  EXPECT_FALSE(editor.CanAdd()) << "no row";
  for (const KeyChord chord : {KeyChord{65, 0}, KeyChord{65, kShift}, KeyChord{0, kCtrl}, KeyChord{17, kCtrl}}) {
    editor.Select(3);
    editor.Press(chord);
    EXPECT_FALSE(editor.CanAdd()) << "keeps the user from typing, or is no key by itself";
    editor.Add();
  }
  EXPECT_EQ(Raised([&] { Give(3, {81, kCtrl}); }), 457) << "another command has it";
  EXPECT_EQ(editor.Pressed(), u"Ctrl+Q");
  Give(1, {81, kCtrl});  // its own
  EXPECT_EQ(editor.Pressed(), u"");
  EXPECT_EQ(Keys(), u"Ctrl+Q|Ctrl+.||");
  EXPECT_EQ(Raised([&] { editor.Select(4); }), 9);
}

}  // namespace quorvane::test

#include <gtest/gtest.h>

#include <stdexcept>

#include "addin/core/ErrBuffer.h"
#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/Guarded.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/ObjStat.h"
#include "addin/core/StringCollection.h"
#include "addin/search/PositionInfo.h"
#include "base/FlagScope.h"
#include "support/Raised.h"
#include "support/TestPlatform.h"

namespace quorvane::test {

class ErrorManagerTest : public ::testing::Test {
 protected:
  /// What the handler of this error would show.
  template <class Exception>
  std::string Shown(const Exception& exception) {
    platform.prompts.Shown.clear();
    try {
      throw exception;
    } catch (...) {
      errors.ShowErr();
    }
    return platform.prompts.Shown.empty() ? "" : ToUtf8(platform.prompts.Shown.back().text);
  }

  Error RaisedBy(const std::u16string& message, const std::vector<std::u16string>& args) {
    return Raised([&] { errors.Raise(7, message, args); });
  }

  static std::string Fields(const Error& error) {
    return ToUtf8(ToText(error.Number) + u" " + error.Description + u" " + error.Source + u" " + error.HelpFile + u" " +
                  ToText(error.HelpContext));
  }

  TestPlatform platform;
  ErrorManager errors;
};

TEST_F(ErrorManagerTest, ShowsAllButCancelling) {
  for (const std::int32_t number : {5, kErrReplaceMode}) {
    platform.prompts.Answers.push_back(1);
    EXPECT_EQ(Shown(Error(number, u"words")),
              "Error:" + std::to_string(number) + "\r\nDescription:words\r\nSource:VBQuorvane");
  }
  for (const std::int32_t number : {0, kErrUserCanceled, static_cast<std::int32_t>(ErrorNumber::DialogCanceled)}) {
    EXPECT_EQ(Shown(Error(number, u"words")), "");
  }
  errors.ShowErr();  // no error is being handled
  platform.prompts.Answers.push_back(1);
  EXPECT_EQ(Shown(std::runtime_error("from outside")), "Error:51\r\nDescription:from outside\r\nSource:VBQuorvane");
  EXPECT_EQ(platform.prompts.Shown.back().flags, 0);
  EXPECT_EQ(platform.prompts.Shown.back().caption, platform.app.Title);
}

TEST_F(ErrorManagerTest, TheTopOfAnEventNeedsNoSharedManager) {
  const auto shared = std::exchange(Globals::gobjErrorManager, nullptr);
  platform.prompts.Answers.push_back(kAnswerOk);
  bool busy = false;
  Guarded([&] {
    const FlagScope scope(busy);
    throw Error(5, u"words");
  });
  Globals::gobjErrorManager = shared;
  EXPECT_FALSE(busy);
  ASSERT_EQ(platform.prompts.Shown.size(), 1U);
  EXPECT_EQ(ToUtf8(platform.prompts.Shown.back().text), "Error:5\r\nDescription:words\r\nSource:VBQuorvane");
}

TEST_F(ErrorManagerTest, SpeaksTheLanguageOfTheMoment) {
  Globals::Language().Language = 0;
  platform.prompts.Answers.push_back(1);
  EXPECT_EQ(Shown(Error(5, u"x")), "错误:5\r\n描述:x\r\n源:VBQuorvane");
  Globals::Language().Language = 1;
}

TEST_F(ErrorManagerTest, RaiseFillsUpward) {
  EXPECT_EQ(RaisedBy(u"%0 and %1", {u"a", u"b"}).Description, u"a and b");
  EXPECT_EQ(RaisedBy(u"%0 and %1", {u"a"}).Description, u"a and %1") << "an argument that was not given";
  EXPECT_EQ(RaisedBy(u"%0", {u"%1", u"b"}).Description, u"b") << "upward: what came in is filled too";
  std::vector<std::u16string> many(11, u"x");
  EXPECT_EQ(RaisedBy(u"%10", many).Description, u"x0") << "%1 goes first";
  EXPECT_EQ(Fields(RaisedBy(u"words", {})), "7 words VBQuorvane  0");
}

TEST_F(ErrorManagerTest, RaiseAgainKeepsEveryField) {
  errors.RaiseAgain();  // nothing to raise
  const auto again = Raised([&] {
    try {
      throw Error(9, u"words", u"someone", u"help.hlp", 4);
    } catch (...) {
      errors.RaiseAgain();
    }
  });
  EXPECT_EQ(Fields(again), "9 words someone help.hlp 4");
}

TEST_F(ErrorManagerTest, ErrBufferHoldsAgainstALaterError) {
  ErrBuffer buffer;
  try {
    throw Error(9, u"first", u"someone", u"help.hlp", 4);
  } catch (...) {
    buffer.Save();
  }
  std::string raised;
  try {
    throw Error(13, u"later");
  } catch (const Error&) {
    raised = Fields(Raised([&] { buffer.Raise(); }));
  }
  EXPECT_EQ(raised, "9 first someone help.hlp 4");
}

TEST_F(ErrorManagerTest, ObjStatCountsLivingObjects) {
  const std::int32_t classes = ObjStat::ClassCount();
  const std::int32_t before = ObjStat::Count("StringCollection");
  ObjStat::Change("Other", -1);
  EXPECT_EQ(ObjStat::Count("Other"), -1);
  EXPECT_EQ(ObjStat::ClassCount(), classes + 1);
  ObjStat::Change("Other", 1);
  EXPECT_EQ(ObjStat::ClassCount(), classes) << "an entry that comes to 0 goes";
  {
    const ErrBuffer first;
    const ErrBuffer second;
    EXPECT_EQ(ObjStat::Count("ErrBuffer"), 2);
    EXPECT_EQ(ObjStat::ClassCount(), classes + 1);
    const PositionInfo position;
    const StringCollection list;
    EXPECT_EQ(ObjStat::Count("PositionInfo"), 1);
    EXPECT_EQ(ObjStat::Count("StringCollection"), before + 1);
  }
  EXPECT_EQ(ObjStat::ClassCount(), classes);
}

}  // namespace quorvane::test

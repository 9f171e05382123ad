#include <gtest/gtest.h>

#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/ModSEH.h"
#include "support/TestPlatform.h"

namespace quorvane::test {

namespace {
std::int32_t Other(ExceptionPointers*) noexcept {
  return kExceptionContinueSearch;
}
}  // namespace

TEST(ModSEH, AsksAndAnswersTheFault) {
  TestPlatform platform;
  ModSEH::InstallFilter(true);
  ASSERT_NE(platform.faults.Filter, nullptr);
  struct Row {
    int answer;
    std::int32_t result;
    std::uintptr_t place;
  };
  for (const Row& row : {Row{3, 0, 1000}, Row{4, -1, 1000}, Row{5, -1, 1001}}) {
    FaultContext context{1000};
    ExceptionPointers pointers{11, &context};
    platform.faults.Answer = row.answer;
    EXPECT_EQ(platform.faults.Filter(&pointers), row.result);
    EXPECT_EQ(context.InstructionPointer, row.place);
  }
  EXPECT_EQ(platform.faults.Flags, 274);
  EXPECT_EQ(platform.faults.Shown, u"An secret event has been occured.......|An exception has been caught.You want:");
  FaultContext context;
  ExceptionPointers pointers{11, &context};
  for (const std::int32_t language : {0, 7}) {
    Globals::Language().Language = language;
    platform.faults.Filter(&pointers);
    EXPECT_EQ(platform.faults.Shown, u"灵异事件产生了.......|捕捉到一个异常.您希望:") << language;
  }
}

TEST(ModSEH, PutsTheFilterBeforeItBack) {
  TestPlatform platform;
  platform.faults.Filter = &Other;
  ModSEH::InstallFilter(true);
  ModSEH::InstallFilter(true);  // a second connection
  EXPECT_NE(platform.faults.Filter, &Other);
  ModSEH::InstallFilter(false);
  EXPECT_EQ(platform.faults.Filter, &Other);
}

}  // namespace quorvane::test

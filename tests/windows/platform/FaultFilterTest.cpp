#include <gtest/gtest.h>

#include <memory>

#include "windows/platform/Win32FaultFilter.h"

namespace quorvane::test {

using windows::Win32FaultFilter;

LONG WINAPI Theirs(EXCEPTION_POINTERS*) {
  return 77;
}

/// What the system would call for a fault that nobody handles.
LPTOP_LEVEL_EXCEPTION_FILTER InForce() {
  const auto filter = ::SetUnhandledExceptionFilter(nullptr);
  ::SetUnhandledExceptionFilter(filter);
  return filter;
}

class FaultFilterTest : public ::testing::Test {
 protected:
  FaultFilterTest() { before_ = ::SetUnhandledExceptionFilter(&Theirs); }
  ~FaultFilterTest() override { ::SetUnhandledExceptionFilter(before_); }

  /// Result of the filter in force for a fault at 1000, and where it goes on.
  static std::pair<LONG, DWORD> Answer() {
    EXCEPTION_RECORD record{};
    record.ExceptionCode = EXCEPTION_ACCESS_VIOLATION;
    CONTEXT context{};
    context.Eip = 1000;
    EXCEPTION_POINTERS pointers{&record, &context};
    const LONG result = InForce()(&pointers);
    return {result, context.Eip};
  }

  LPTOP_LEVEL_EXCEPTION_FILTER before_;
};

std::int32_t GoOn(ExceptionPointers* pointers) noexcept {
  if (pointers->Code != static_cast<std::int32_t>(EXCEPTION_ACCESS_VIOLATION)) return kExceptionContinueSearch;
  pointers->Context->InstructionPointer += 1;
  return kExceptionContinueExecution;
}

std::int32_t SearchOn(ExceptionPointers*) noexcept {
  return kExceptionContinueSearch;
}

TEST_F(FaultFilterTest, TheAnswerGoesBackAndWhatIsNotOursGoesOn) {
  Win32FaultFilter faults;
  EXPECT_EQ(faults.SetUnhandledExceptionFilter(&GoOn), nullptr);
  EXPECT_EQ(Answer(), std::make_pair(-1L, DWORD{1001}));
  EXPECT_EQ(faults.SetUnhandledExceptionFilter(&SearchOn), &GoOn);
  EXPECT_EQ(Answer(), std::make_pair(77L, DWORD{1000}));
  EXPECT_EQ(faults.SetUnhandledExceptionFilter(nullptr), &SearchOn);
  EXPECT_EQ(InForce(), &Theirs);
}

TEST_F(FaultFilterTest, AtTheEndTheFilterBeforeIsInForceAgain) {
  auto faults = std::make_unique<Win32FaultFilter>();
  faults->SetUnhandledExceptionFilter(&GoOn);
  EXPECT_NE(InForce(), &Theirs);
  faults.reset();
  EXPECT_EQ(InForce(), &Theirs);
}

LPTOP_LEVEL_EXCEPTION_FILTER below = nullptr;

LONG WINAPI Above(EXCEPTION_POINTERS* pointers) {
  return below(pointers) + 1;
}

/// Somebody else's filter above ours stays, and what it still calls of ours hands on.
TEST_F(FaultFilterTest, AFilterAboveOursStaysInForce) {
  {
    Win32FaultFilter faults;
    faults.SetUnhandledExceptionFilter(&GoOn);
    below = ::SetUnhandledExceptionFilter(&Above);
  }
  EXPECT_EQ(InForce(), &Above);
  EXPECT_EQ(Answer(), std::make_pair(78L, DWORD{1000}));
}

}  // namespace quorvane::test

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "native/system/FaultFilter.h"
#include "native/system/LocaleClock.h"
#include "support/Rows.h"
#include "support/TempFolder.h"

namespace quorvane::test {

using native::FaultFilter;

namespace {

FaultFilter* asked = nullptr;

/// Asks, and does with the answer what a filter does.
std::int32_t Ask(ExceptionPointers* pointers) noexcept {
  const int answer = asked->FaultBox(u"what now? \u4E2D", 274, u"\xD83D\xDE00");
  if (answer == 5) ++pointers->Context->InstructionPointer;
  return answer == 3 ? kExceptionContinueSearch : kExceptionContinueExecution;
}

// The faults below must reach the processor; a sanitizer would see them first.
[[gnu::no_sanitize("undefined", "address")]] void TouchNothing() {
  volatile int* volatile nothing = nullptr;
  *nothing = 1;
}

[[gnu::no_sanitize("undefined", "address")]] int RunOver(int depth) {
  volatile char room[4096];
  room[depth % 4096] = 1;
  return depth < 0 ? 0 : RunOver(depth + 1) + room[0];
}

bool EndedBadly(int status) {
  return WIFSIGNALED(status) || (WIFEXITED(status) && WEXITSTATUS(status) != 0);
}

}  // namespace

class FaultFilterTest : public ::testing::Test {
 protected:
  FaultFilterTest() {
    // Answers with the lines of a file, one after the other; writes down how it was asked.
    script =
        folder.Write("ask", "#!/bin/sh\necho \"$1|$2|$3\" >> \"" + (folder / "asked") + "\"\nn=$(wc -l < \"" +
                                (folder / "asked") + "\")\nexit $(sed -n ${n}p \"" + (folder / "answers") + "\")\n");
  }

  /// The body of the process that dies.
  template <class Fault>
  void Die(Fault fault) {
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);  // the test wants no core
    FaultFilter filter({"/bin/sh", script});
    asked = &filter;
    filter.SetUnhandledExceptionFilter(&Ask);
    fault();
    std::_Exit(0);
  }

  std::string Asked() { return std::filesystem::exists(folder / "asked") ? folder.Read("asked") : ""; }

  static constexpr const char* kOnce = "what now? 中|274|😀\n";

  TempFolder folder;
  std::string script;
};

TEST_F(FaultFilterTest, AbortEndsTheProcessByItsFault) {
  const auto overrun = [] { RunOver(0); };
  folder.Write("answers", "3\n3\n3\n3\n");
  EXPECT_EXIT(Die(TouchNothing), EndedBadly, "");
  EXPECT_EXIT(Die([] { __builtin_trap(); }), EndedBadly, "");
  EXPECT_EXIT(Die(overrun), EndedBadly, "");
  EXPECT_EQ(Asked(), std::string(kOnce) + kOnce + kOnce);
}

TEST_F(FaultFilterTest, RetryRunsTheInstructionAgainAndIgnoreDoesNotGoOn) {
  folder.Write("answers", "4\n4\n5\n4\n");
  EXPECT_EXIT(Die(TouchNothing), EndedBadly, "");
  EXPECT_EQ(Asked(), std::string(kOnce) + kOnce + kOnce) << "twice again, then the end";
}

TEST_F(FaultFilterTest, ASignalFromOutsideIsNoFault) {
  EXPECT_EXIT(Die([] { raise(SIGSEGV); }), EndedBadly, "");
  EXPECT_EQ(Asked(), "");
}

TEST_F(FaultFilterTest, WithoutAProgramToAskTheAnswerIsAbort) {
  const auto die = [](std::vector<std::string> question) {
    FaultFilter filter(std::move(question));
    asked = &filter;
    filter.SetUnhandledExceptionFilter(&Ask);
    TouchNothing();
  };
  const rlimit none{0, 0};
  EXPECT_EXIT((setrlimit(RLIMIT_CORE, &none), die({})), EndedBadly, "😀");
  EXPECT_EXIT((setrlimit(RLIMIT_CORE, &none), die({folder / "missing"})), EndedBadly, "");
}

TEST_F(FaultFilterTest, GivesTheSignalsBack) {
  struct sigaction before {};
  struct sigaction during {};
  struct sigaction after {};
  sigaction(SIGSEGV, nullptr, &before);
  {
    FaultFilter filter;
    EXPECT_EQ(filter.SetUnhandledExceptionFilter(&Ask), nullptr);
    EXPECT_EQ(filter.SetUnhandledExceptionFilter(&Ask), &Ask);
    sigaction(SIGSEGV, nullptr, &during);
  }
  sigaction(SIGSEGV, nullptr, &after);
  EXPECT_NE(during.sa_sigaction, before.sa_sigaction);
  EXPECT_EQ(after.sa_sigaction, before.sa_sigaction);
}

TEST(LocaleClock, TakesOrderAndSeparatorFromTheLocale) {
  for (const Row& row : Rows("native/LocaleClock.rows", "Formats")) {
    const DateFormat format = native::LocaleClock::FormatOf(row.Bytes(0));
    EXPECT_EQ(format.Order, static_cast<DateOrder>(row.Number(1))) << row.Where();
    EXPECT_EQ(format.Separator, row.Text(2)[0]) << row.Where();
  }
  EXPECT_GT(native::LocaleClock().Now().Day, DateTime::Of(2024, 1, 1).Day);
}

}  // namespace quorvane::test

// The filter runs in the middle of a fault, possibly inside the allocator. It therefore works on what exists already:
// texts come straight from the string table, and the box is the platform's own for this purpose. Nothing is saved: the
// settings keep the state of the last disconnection.
#include "addin/core/ModSEH.h"

#include <string_view>

#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/core/StringTable.h"
#include "base/Skip.h"
#include "platform/ExceptionFilter.h"
#include "platform/Platform.h"

namespace quorvane::ModSEH {

namespace {

constexpr std::int32_t kFaultText = 211;
constexpr std::int32_t kFaultCaption = 212;
constexpr int kAbortRetryIgnoreCriticalSecond = 274;
constexpr int kRetry = 4;
constexpr int kIgnore = 5;
constexpr std::uintptr_t kIgnoredBytes = 1;

UnhandledExceptionFilter previous = nullptr;

/// In the language of the moment, in Chinese when there is none.
std::u16string_view FaultString(std::int32_t id) noexcept {
  std::u16string_view text = LoadResString(id).value_or(std::u16string_view());
  SkipErrors([&] { text = Globals::Language().Entry(id).value_or(text); });
  return text;
}

std::int32_t Filter(ExceptionPointers* pointers) noexcept {
  FaultContext context = *pointers->Context;
  int answer = 0;
  SkipErrors([&] {
    answer = ThePlatform().Faults().FaultBox(FaultString(kFaultText), kAbortRetryIgnoreCriticalSecond,
                                             FaultString(kFaultCaption));
  });
  if (answer == kIgnore) context.InstructionPointer += kIgnoredBytes;
  *pointers->Context = context;
  return answer == kRetry || answer == kIgnore ? kExceptionContinueExecution : kExceptionContinueSearch;
}

}  // namespace

void InstallFilter(bool enable) {
  ExceptionFilter& faults = ThePlatform().Faults();
  if (!enable) {
    faults.SetUnhandledExceptionFilter(previous);
    return;
  }
  SkipErrors([] { Globals::Language(); });  // made now, so that the filter need not
  const UnhandledExceptionFilter before = faults.SetUnhandledExceptionFilter(&Filter);
  if (before != &Filter) previous = before;
}

}  // namespace quorvane::ModSEH

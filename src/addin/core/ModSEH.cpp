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
#include "platform/Prompts.h"

namespace quorvane::ModSEH {

namespace {

constexpr std::uintptr_t kIgnoredBytes = 1;

UnhandledExceptionFilter previous = nullptr;

/// In the language of the moment, in Chinese when there is none.
std::u16string_view FaultString(StringId id) noexcept {
  std::u16string_view text = LoadResString(static_cast<std::int32_t>(id)).value_or(std::u16string_view());
  SkipErrors([&] { text = Globals::Language().Entry(id).value_or(text); });
  return text;
}

std::int32_t Filter(ExceptionPointers* pointers) noexcept {
  FaultContext context = *pointers->Context;
  int answer = 0;
  SkipErrors([&] {
    answer =
        ThePlatform().Faults().FaultBox(FaultString(StringId::FaultText), kAbortRetryIgnore | kCritical | kSecondButton,
                                        FaultString(StringId::FaultCaption));
  });
  if (answer == kAnswerIgnore) context.InstructionPointer += kIgnoredBytes;
  *pointers->Context = context;
  return answer == kAnswerRetry || answer == kAnswerIgnore ? kExceptionContinueExecution : kExceptionContinueSearch;
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

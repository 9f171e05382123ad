#include "windows/platform/Win32FaultFilter.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "windows/forms/Window.h"

namespace quorvane::windows {

namespace {

constexpr std::size_t kLongestText = 512;

// What the fault's own thread reads, so that it need not reach for an object.
UnhandledExceptionFilter ours = nullptr;
LPTOP_LEVEL_EXCEPTION_FILTER before = nullptr;
bool inForce = false;

#if defined(__i386__)
DWORD& PlaceOf(CONTEXT& context) {
  return context.Eip;
}
#else
DWORD64& PlaceOf(CONTEXT& context) {
  return context.Rip;
}
#endif

LONG WINAPI Filter(EXCEPTION_POINTERS* pointers) {
  const UnhandledExceptionFilter filter = ours;
  if (filter == nullptr) return before != nullptr ? before(pointers) : EXCEPTION_CONTINUE_SEARCH;
  FaultContext context{PlaceOf(*pointers->ContextRecord)};
  ExceptionPointers told{static_cast<std::int32_t>(pointers->ExceptionRecord->ExceptionCode), &context};
  const std::int32_t answer = filter(&told);
  auto& place = PlaceOf(*pointers->ContextRecord);
  place = static_cast<std::remove_reference_t<decltype(place)>>(context.InstructionPointer);
  if (answer != kExceptionContinueSearch) return answer;
  return before != nullptr ? before(pointers) : EXCEPTION_CONTINUE_SEARCH;
}

/// As much of a text as fits, with a zero after it.
void Copy(std::u16string_view text, wchar_t (&buffer)[kLongestText]) {
  const std::size_t length = std::min(text.size(), kLongestText - 1);
  std::copy_n(text.begin(), length, buffer);
  buffer[length] = 0;
}

}  // namespace

Win32FaultFilter::~Win32FaultFilter() {
  ours = nullptr;
  TakeOut();
}

UnhandledExceptionFilter Win32FaultFilter::SetUnhandledExceptionFilter(UnhandledExceptionFilter filter) {
  const UnhandledExceptionFilter old = std::exchange(ours, filter);
  if (filter != nullptr) {
    PutInForce();
  } else {
    TakeOut();
  }
  return old;
}

void Win32FaultFilter::PutInForce() {
  if (inForce) return;
  before = ::SetUnhandledExceptionFilter(&Filter);
  inForce = true;
}

void Win32FaultFilter::TakeOut() {
  if (!inForce) return;
  const LPTOP_LEVEL_EXCEPTION_FILTER top = ::SetUnhandledExceptionFilter(before);
  if (top == &Filter) {
    inForce = false;
    return;
  }
  ::SetUnhandledExceptionFilter(top);  // somebody else's, with ours below it
  HMODULE pinned = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<const wchar_t*>(&Filter), &pinned);
}

int Win32FaultFilter::FaultBox(std::u16string_view text, int flags, std::u16string_view caption) noexcept {
  wchar_t words[kLongestText];
  wchar_t title[kLongestText];
  Copy(text, words);
  Copy(caption, title);
  return ::MessageBoxW(nullptr, words, title, static_cast<UINT>(flags) | MB_TASKMODAL | MB_SETFOREGROUND);
}

}  // namespace quorvane::windows

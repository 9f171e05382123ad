#pragma once

#include <cstdint>
#include <string_view>

namespace quorvane {

/// What a filter may look at and change of the processor's state at a fault.
struct FaultContext {
  std::uintptr_t InstructionPointer = 0;
};

struct ExceptionPointers {
  std::int32_t Code = 0;  ///< the platform's number for the kind of fault
  FaultContext* Context = nullptr;
};

/// Results of a filter.
inline constexpr std::int32_t kExceptionContinueSearch = 0;      ///< on to the next handler, as a rule the end
inline constexpr std::int32_t kExceptionContinueExecution = -1;  ///< go on where Context says

/// A filter runs in the middle of whatever failed: it must not allocate, lock, throw or touch what the fault may have
/// left half done.
using UnhandledExceptionFilter = std::int32_t (*)(ExceptionPointers* pointers) noexcept;

/// Faults that no handler sees: a bad address, an arithmetic fault, an illegal instruction.
class ExceptionFilter {
 public:
  virtual ~ExceptionFilter() = default;

  /// Puts `filter`, which may be nothing, in force and gives the one before.
  virtual UnhandledExceptionFilter SetUnhandledExceptionFilter(UnhandledExceptionFilter filter) = 0;

  /// Prompts::MsgBox for use inside a filter: safe there, at the cost of anything that the platform cannot do safely.
  virtual int FaultBox(std::u16string_view text, int flags, std::u16string_view caption) noexcept = 0;
};

}  // namespace quorvane

#pragma once

#include <cstdint>

namespace quorvane {

namespace vbide {
class CodeModule;
}  // namespace vbide

/// First and last line of a part of a module, 1-based.
struct LineRange {
  std::int32_t First = 1;
  std::int32_t Last = 0;
};

/// The procedure that line `caret` lies in, or the declarations section. Raises error 5 when the host, which is asked
/// by name, gives a procedure that does not hold that line.
LineRange ProcedureAround(vbide::CodeModule& code, std::int32_t caret);

}  // namespace quorvane

#include "addin/search/ProcedureLines.h"

#include <string>

#include "base/Checked.h"
#include "base/Error.h"
#include "base/Text.h"
#include "vbide/VBIDE.h"

namespace quorvane {

LineRange ProcedureAround(vbide::CodeModule& code, std::int32_t caret) {
  if (caret <= code.CountOfDeclarationLines()) return {1, code.CountOfDeclarationLines()};
  vbide::ProcKind kind = vbide::ProcKind::Proc;
  const std::u16string name = code.ProcOfLine(caret, kind);
  const std::int32_t first = code.ProcStartLine(name, kind);
  const std::int32_t last = Checked32(std::int64_t{first} + code.ProcCountLines(name, kind) - 1);
  // The host finds a procedure by its name, which may stand in the module more than once.
  if (caret < first || caret > last) {
    RaiseError(ErrorNumber::InvalidProcedureCall,
               u"Line " + ToText(caret) + u" is not in the procedure that the host finds by the name " + name);
  }
  return {first, last};
}

}  // namespace quorvane

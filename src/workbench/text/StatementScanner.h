#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "vbide/VBIDE.h"

namespace quorvane::workbench {

/// What one statement means for the division of a module into procedures.
struct Statement {
  enum class Kind {
    None,       ///< empty or a comment
    Directive,  ///< of the compiler: it begins with #
    EndIf,      ///< the directive that closes a block
    If,         ///< the directive that opens a block
    Header,     ///< begins a procedure
    End,        ///< ends a procedure
    Other,
  };

  Kind kind = Kind::None;
  std::u16string name{};  ///< of a header, without brackets and type suffix
  vbide::ProcKind procKind = vbide::ProcKind::Proc;
};

/// Takes a logical line apart: statements between colons, strings skipped, up to a comment.
class StatementScanner {
 public:
  /// `line` must outlive this. Line continuations have become blanks.
  explicit StatementScanner(std::u16string_view line) : rest_(line) {}

  /// False after the last statement.
  bool Next(Statement& statement);

 private:
  std::u16string_view TakeStatement();

  std::u16string_view rest_;
  bool done_ = false;
};

}  // namespace quorvane::workbench

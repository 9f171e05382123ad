#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vbide/VBIDE.h"

namespace quorvane::workbench {

class ModuleText;

/// One procedure of a module. Lines are 1-based and count physical lines of the module.
struct Procedure {
  std::u16string name;  ///< without brackets and type suffix
  vbide::ProcKind kind = vbide::ProcKind::Proc;
  std::int32_t startLine = 1;  ///< blank lines and comments above the header included
  std::int32_t countOfLines = 0;

  bool operator==(const Procedure&) const = default;
};

/// Which lines of a module belong to which procedure, as of the moment of building.
///
/// After the declarations every line belongs to exactly one procedure: the procedures follow each other without a gap
/// and the last one reaches to the end of the module.
class ProcedureMap {
 public:
  ProcedureMap() = default;
  explicit ProcedureMap(const ModuleText& text);

  /// All lines when there is no procedure.
  std::int32_t CountOfDeclarationLines() const { return declarationLines_; }
  const std::vector<Procedure>& Procedures() const { return procedures_; }

  /// The procedure that holds `line`; null in the declarations and outside of the module.
  const Procedure* AtLine(std::int32_t line) const;
  /// The procedure of that name and kind; letters of either case are the same. A name can stand more than once, in the
  /// branches of #If or in two cases beyond ASCII: of several, one spelt exactly so goes before the others, then
  /// `preferred`, a procedure of this map or nothing, then the first. Raises error 35, naming the procedure, when there
  /// is none.
  const Procedure& Named(std::u16string_view name, vbide::ProcKind kind, const Procedure* preferred) const;

 private:
  std::vector<Procedure> procedures_;  ///< ascending by startLine
  std::int32_t declarationLines_ = 0;
  std::int32_t countOfLines_ = 0;
};

}  // namespace quorvane::workbench

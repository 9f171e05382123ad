#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::workbench {

enum class MemberKind : std::uint8_t {
  Sub,
  Function,
  PropertyGet,
  PropertyLet,
  PropertySet,
  Event,
  Declare,
  Const,
  Type,
  Enum,
  Variable,
};

/// The declaration of one member of a module, as far as hidden lines care: `Dim A, B` holds two.
struct MemberDeclaration {
  MemberKind kind = MemberKind::Variable;
  std::string name;  ///< bytes as written, without type suffix
  std::string rest;  ///< what stands after the name: suffix, parameters, type, value
  /// The physical lines of its statement, 0-based, both inclusive; they differ when it is continued.
  std::int32_t first = 0;
  std::int32_t last = 0;

  bool operator==(const MemberDeclaration&) const = default;
};

/// True when the statement in `line` goes on in the next one.
bool IsContinued(std::string_view line);

/// Names of members compare without case; only ASCII letters that cannot be half of a two-byte character fold.
std::string FoldName(std::string_view name);

/// The declarations at module level, in the order of the text. Works on the bytes of the file, whatever its code page:
/// all that it looks for is ASCII that is never the second byte of a character. What it does not understand it skips.
std::vector<MemberDeclaration> ScanDeclarations(const std::vector<std::string_view>& lines);

}  // namespace quorvane::workbench

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::native {

/// A replacement text with its tokens $1…$99 $& $` $' $$, read once and expanded for each match. A `$` that begins no
/// token, or names a group that the pattern lacks, is literal.
class ReplacementTemplate {
 public:
  /// `replacement` must outlive the template.
  ReplacementTemplate(std::u16string_view replacement, std::size_t groupCount);

  /// Appends the replacement of one match to `out`. `bounds` holds begin and end of the match and of each group as
  /// 0-based offsets into `text`; a group that took no part, or lies after the end of `bounds`, gives nothing.
  void AppendTo(std::u16string& out, std::u16string_view text, std::span<const std::size_t> bounds) const;

 private:
  enum class Kind { Literal, Group, Before, Behind };
  struct Piece {
    Kind Is = Kind::Literal;
    std::u16string_view Text;
    std::size_t Group = 0;  ///< 0 is the whole match
  };

  /// Reads the token that `text` begins with; its length, 0 when the `$` there is literal.
  static std::size_t ReadToken(std::u16string_view text, std::size_t groupCount, Piece& token);

  std::vector<Piece> pieces_;
};

}  // namespace quorvane::native

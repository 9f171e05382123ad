#pragma once

#include <optional>
#include <string>
#include <vector>

struct _xmlDoc;

namespace quorvane::native {

/// A stylesheet that strings literal texts and values of attributes together, and does nothing else: what the default
/// one and most others are. It needs no library to run. UTF-8.
struct StraightSheet {
  struct Piece {
    std::string Literal;
    std::string Attribute;  ///< the name of the one whose value stands here; empty: Literal does
    bool Escaped = true;    ///< & < > and CR as the library writes them in XML
  };

  std::string Element;  ///< all others give an empty text
  std::vector<Piece> Pieces;
};

/// What `document`, as it was parsed, says; no value when it is not surely such a stylesheet. Output method and
/// declaration are not looked at.
std::optional<StraightSheet> ReadStraightSheet(const _xmlDoc* document);

}  // namespace quorvane::native

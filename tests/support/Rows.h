#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vbide/VBIDE.h"

namespace quorvane::test {

/// A line of a table in a text file beside the tests. Cells are parted by tabs and written as in C: \t \r \n \\ \xHH
/// \uHHHH with exactly that many digits; "" is an empty cell, and so is one that is missing at the end.
class Row {
 public:
  Row(std::string where, std::string_view line);

  /// Bytes as they stand in the file; \x gives one byte, \u one character in UTF-8.
  std::string Bytes(std::size_t cell) const;
  /// UTF-16; \x and \u give one unit.
  std::u16string Text(std::size_t cell) const;
  /// Decimal; 0 for an empty cell.
  std::int32_t Number(std::size_t cell) const;
  /// The parts of a cell between "|".
  std::vector<std::string> List(std::size_t cell) const;
  /// Line and column of both ends, between blanks.
  vbide::Selection Range(std::size_t cell) const;
  std::size_t Count() const { return cells_.size(); }

  /// What names the row when it fails: for SCOPED_TRACE.
  const std::string& Where() const { return where_; }

 private:
  std::string where_;
  std::vector<std::string> cells_;  ///< as written
};

/// The rows below the line "[table]" of tests/`file`. Lines that begin with ";;" are remarks. Throws when there are
/// none.
std::vector<Row> Rows(const std::string& file, const std::string& table);

}  // namespace quorvane::test

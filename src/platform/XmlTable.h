#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

class XmlDocument;

/// The names of a table, all of them XML names, which outlive it.
struct XmlTableShape {
  struct Column {
    std::string_view Name;
    bool IsNumber;
  };
  std::string_view Root;
  std::string_view Row;
  std::vector<Column> Columns;
};

/// A document of one shape: a root that holds elements of one name, which hold attributes alone. Its elements are rows
/// here and their attributes columns, both 0-based. A row may lack columns at its end.
class XmlTable {
 public:
  virtual ~XmlTable() = default;

  /// Begins one more row, which has no values yet.
  virtual void BeginRow() = 0;
  /// The value of the next column of the last row; it is of the column's kind. Any text is kept and given back exactly,
  /// but that NUL and unpaired surrogates come back as U+FFFD.
  virtual void AddNumber(std::int32_t value) = 0;
  virtual void AddText(std::u16string_view value) = 0;
  virtual void Clear() = 0;

  virtual std::size_t RowCount() const = 0;
  /// A value in constant time; 0 or the empty text where the row lacks the column. Raises error 9 for a row or a column
  /// of that kind that does not exist.
  virtual std::int32_t Number(std::size_t row, std::size_t column) const = 0;
  virtual std::u16string Text(std::size_t row, std::size_t column) const = 0;

  /// The output, as text, of the XSLT 1.0 stylesheet in `stylesheet` with the element of `row` as the initial context
  /// node; root and other rows are in reach. Raises an error when the stylesheet cannot run. Its cost does not grow
  /// with the table unless the stylesheet looks further than its row.
  virtual std::u16string Transform(std::size_t row, XmlDocument& stylesheet) = 0;

  /// The whole document as saved, in UTF-8; characters that XML cannot hold become U+FFFD.
  virtual std::string Xml() const = 0;
  /// Writes Xml() to `path`: the old file stays whole when that fails, which raises an error with the path in it.
  virtual void Save(const std::u16string& path) const = 0;
};

}  // namespace quorvane

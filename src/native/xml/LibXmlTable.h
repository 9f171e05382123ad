#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/XmlTable.h"

struct _xmlDict;

namespace quorvane::native {

class RowNodes;
class ScratchElement;
class Stylesheet;
class XmlRowWriter;

/// The platform's table, transformed by libxslt.
class LibXmlTable final : public XmlTable {
 public:
  explicit LibXmlTable(XmlTableShape shape);
  ~LibXmlTable() override;
  LibXmlTable(const LibXmlTable&) = delete;
  LibXmlTable& operator=(const LibXmlTable&) = delete;

  void BeginRow() override;
  void AddNumber(std::int32_t value) override;
  void AddText(std::u16string_view value) override;
  void Clear() override;
  std::size_t RowCount() const override { return rowCount_; }
  std::int32_t Number(std::size_t row, std::size_t column) const override;
  std::u16string Text(std::size_t row, std::size_t column) const override;
  std::u16string Transform(std::size_t row, XmlDocument& stylesheet) override;
  std::string Xml() const override;
  void Save(const std::u16string& path) const override;

 private:
  std::uint32_t CellAt(std::size_t row, std::size_t column) const {
    return cells_[row * shape_.Columns.size() + column];
  }
  std::string_view TextAt(std::uint32_t cell) const;
  std::uint32_t Keep(std::string_view utf8);
  void Check(std::size_t row, std::size_t column, bool isNumber) const;
  /// How many columns the row has.
  std::size_t Width(std::size_t row) const;
  /// A value that the row has, UTF-8 with a NUL after it: good until the table changes or this is asked for another
  /// row.
  std::string_view ValueAt(std::size_t row, std::size_t column) const;
  /// Calls `visit` with the number of each column that the row has and its ValueAt.
  template <class Visitor>
  void ForEachValue(std::size_t row, Visitor visit) const;
  /// Makes the plan for a stylesheet that is straight.
  void Plan(const std::shared_ptr<const Stylesheet>& stylesheet);
  std::u16string RunPlan(std::size_t row);
  std::u16string TransformAlone(std::size_t row, const std::shared_ptr<const Stylesheet>& stylesheet);
  std::u16string TransformInPlace(std::size_t row, const std::shared_ptr<const Stylesheet>& stylesheet);

  const XmlTableShape shape_;
  _xmlDict* names_;
  std::vector<const unsigned char*> columnNames_;  ///< in names_
  const unsigned char* rowName_;
  const unsigned char* rootName_;

  std::size_t rowCount_ = 0;
  std::size_t nextColumn_ = 0;                 ///< of the last row
  std::deque<std::uint32_t> cells_;            ///< row by row: a number, or where its text begins in texts_
  std::map<std::size_t, std::size_t> narrow_;  ///< rows that lack columns, with how many they have
  std::string texts_;                          ///< each with its length before and a NUL after
  std::string utf8_;
  mutable std::vector<char> digits_;  ///< of the numbers of the row that was last looked at
  /// A piece of a straight stylesheet: a text as it is written, or a column.
  struct Step {
    std::string Written;
    std::size_t Column = kNoColumn;
    bool Escaped = false;
  };
  static constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);
  std::shared_ptr<const Stylesheet> planned_;  ///< that plan_ was made for
  std::vector<Step> plan_;
  std::unique_ptr<ScratchElement> scratch_;  ///< made at the first need
  std::unique_ptr<RowNodes> nodes_;          ///< made at the first need, for the rows that there were
};

}  // namespace quorvane::native

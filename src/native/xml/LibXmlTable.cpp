// A match costs a row of 32-bit cells and the texts that differ from those of the row above, which is where most are
// the same. Nodes are made for two reasons alone: one scratch element stands for the row that a stylesheet looks at, as
// long as that stays inside of it; a stylesheet that looks further gets the document, which grows with the table from
// then on.

#include "native/xml/LibXmlTable.h"

#include <libxml/tree.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include "base/Error.h"
#include "base/Text.h"
#include "native/files/AtomicFile.h"
#include "native/xml/LibXmlDocument.h"
#include "native/xml/RowNodes.h"
#include "native/xml/ScratchElement.h"
#include "native/xml/Stylesheet.h"
#include "native/xml/XmlRowWriter.h"
#include "native/xml/XmlText.h"

namespace quorvane::native {

namespace {

constexpr std::size_t kDigits = 12;  ///< of a number, with its sign and a NUL

const unsigned char* Interned(_xmlDict* names, std::string_view name) {
  const auto* chars = reinterpret_cast<const unsigned char*>(name.data());
  const unsigned char* known = xmlDictLookup(names, chars, static_cast<int>(name.size()));
  if (known == nullptr) throw std::bad_alloc();
  return known;
}

_xmlDict* NewNames() {
  _xmlDict* names = xmlDictCreate();
  if (names == nullptr) throw std::bad_alloc();
  return names;
}

}  // namespace

LibXmlTable::LibXmlTable(XmlTableShape shape)
    : shape_(std::move(shape)),
      names_(NewNames()),
      rowName_(Interned(names_, shape_.Row)),
      rootName_(Interned(names_, shape_.Root)),
      digits_(shape_.Columns.size() * kDigits) {
  for (const XmlTableShape::Column& column : shape_.Columns) columnNames_.push_back(Interned(names_, column.Name));
}

LibXmlTable::~LibXmlTable() {
  nodes_.reset();
  scratch_.reset();
  xmlDictFree(names_);
}

void LibXmlTable::BeginRow() {
  if (rowCount_ > 0 && nextColumn_ < shape_.Columns.size()) narrow_[rowCount_ - 1] = nextColumn_;
  cells_.resize(cells_.size() + shape_.Columns.size());
  ++rowCount_;
  nextColumn_ = 0;
}

void LibXmlTable::AddNumber(std::int32_t value) {
  if (rowCount_ == 0) RaiseError(ErrorNumber::SubscriptOutOfRange);
  Check(rowCount_ - 1, nextColumn_, true);
  cells_[(rowCount_ - 1) * shape_.Columns.size() + nextColumn_++] = static_cast<std::uint32_t>(value);
}

void LibXmlTable::AddText(std::u16string_view value) {
  if (rowCount_ == 0) RaiseError(ErrorNumber::SubscriptOutOfRange);
  const std::size_t row = rowCount_ - 1;
  Check(row, nextColumn_, false);
  ToXmlText(value, utf8_);
  const std::size_t above = row > 0 && nextColumn_ < Width(row - 1) ? CellAt(row - 1, nextColumn_) : 0;
  const bool same = row > 0 && nextColumn_ < Width(row - 1) && TextAt(static_cast<std::uint32_t>(above)) == utf8_;
  cells_[row * shape_.Columns.size() + nextColumn_] = same ? static_cast<std::uint32_t>(above) : Keep(utf8_);
  ++nextColumn_;
}

std::uint32_t LibXmlTable::Keep(std::string_view utf8) {
  const std::size_t begin = texts_.size();
  const std::uint64_t end = std::uint64_t{begin} + sizeof(std::uint32_t) + utf8.size() + 1;
  if (end > std::numeric_limits<std::uint32_t>::max()) RaiseError(ErrorNumber::OutOfMemory);
  const auto length = static_cast<std::uint32_t>(utf8.size());
  std::array<char, sizeof length> bytes;
  std::memcpy(bytes.data(), &length, bytes.size());
  texts_.append(bytes.data(), bytes.size()).append(utf8).push_back('\0');
  return static_cast<std::uint32_t>(begin);
}

std::string_view LibXmlTable::TextAt(std::uint32_t cell) const {
  std::uint32_t length = 0;
  std::memcpy(&length, texts_.data() + cell, sizeof length);
  return {texts_.data() + cell + sizeof length, length};
}

void LibXmlTable::Clear() {
  nodes_.reset();
  cells_.clear();
  cells_.shrink_to_fit();
  narrow_.clear();
  texts_ = {};
  rowCount_ = 0;
  nextColumn_ = 0;
}

std::size_t LibXmlTable::Width(std::size_t row) const {
  if (row + 1 == rowCount_) return nextColumn_;
  const auto narrow = narrow_.find(row);
  return narrow == narrow_.end() ? shape_.Columns.size() : narrow->second;
}

void LibXmlTable::Check(std::size_t row, std::size_t column, bool isNumber) const {
  const bool exists = row < rowCount_ && column < shape_.Columns.size();
  if (!exists || shape_.Columns[column].IsNumber != isNumber) RaiseError(ErrorNumber::SubscriptOutOfRange);
}

std::int32_t LibXmlTable::Number(std::size_t row, std::size_t column) const {
  Check(row, column, true);
  return column < Width(row) ? static_cast<std::int32_t>(CellAt(row, column)) : 0;
}

std::u16string LibXmlTable::Text(std::size_t row, std::size_t column) const {
  Check(row, column, false);
  std::u16string text;
  if (column < Width(row)) AppendXmlText(TextAt(CellAt(row, column)), text);
  return text;
}

template <class Visitor>
void LibXmlTable::ForEachValue(std::size_t row, Visitor visit) const {
  const std::size_t width = Width(row);
  for (std::size_t column = 0; column < width; ++column) visit(column, ValueAt(row, column));
}

std::string_view LibXmlTable::ValueAt(std::size_t row, std::size_t column) const {
  const std::uint32_t cell = CellAt(row, column);
  if (!shape_.Columns[column].IsNumber) return TextAt(cell);
  char* const begin = digits_.data() + column * kDigits;
  char* const end = std::to_chars(begin, begin + kDigits - 1, static_cast<std::int32_t>(cell)).ptr;
  *end = '\0';
  return {begin, end};
}

std::u16string LibXmlTable::Transform(std::size_t row, XmlDocument& stylesheet) {
  if (row >= rowCount_) RaiseError(ErrorNumber::SubscriptOutOfRange);
  auto* document = dynamic_cast<LibXmlDocument*>(&stylesheet);
  if (document == nullptr) RaiseError(ErrorNumber::InvalidProcedureCall);
  const std::shared_ptr<const Stylesheet> compiled = document->Compiled();
  if (compiled->Straight() != nullptr) {
    Plan(compiled);
    return RunPlan(row);
  }
  return compiled->StaysInside() ? TransformAlone(row, compiled) : TransformInPlace(row, compiled);
}

void LibXmlTable::Plan(const std::shared_ptr<const Stylesheet>& stylesheet) {
  if (planned_ == stylesheet) return;
  planned_ = stylesheet;
  plan_.clear();
  const StraightSheet& sheet = *stylesheet->Straight();
  if (sheet.Element != shape_.Row) return;
  for (const StraightSheet::Piece& piece : sheet.Pieces) {
    Step step;
    step.Escaped = piece.Escaped;
    if (piece.Attribute.empty()) {
      if (piece.Escaped) AppendEscapedText(piece.Literal, step.Written);
      if (!piece.Escaped) step.Written = piece.Literal;
    } else {
      const auto found = std::ranges::find(shape_.Columns, piece.Attribute, &XmlTableShape::Column::Name);
      if (found == shape_.Columns.end()) continue;
      step.Column = static_cast<std::size_t>(found - shape_.Columns.begin());
    }
    plan_.push_back(std::move(step));
  }
}

std::u16string LibXmlTable::RunPlan(std::size_t row) {
  const std::size_t width = Width(row);
  utf8_.clear();
  for (const Step& step : plan_) {
    if (step.Column == kNoColumn) {
      utf8_ += step.Written;
    } else if (step.Column < width) {
      const std::string_view value = ValueAt(row, step.Column);
      if (step.Escaped) AppendEscapedText(value, utf8_);
      if (!step.Escaped) utf8_ += value;
    }
  }
  std::u16string text;
  AppendXmlText(utf8_, text);
  return text;
}

std::u16string LibXmlTable::TransformAlone(std::size_t row, const std::shared_ptr<const Stylesheet>& stylesheet) {
  if (!scratch_) scratch_ = std::make_unique<ScratchElement>(names_);
  scratch_->Begin(rowName_);
  ForEachValue(row, [this](std::size_t column, std::string_view value) { scratch_->Add(columnNames_[column], value); });
  return scratch_->Transform(stylesheet);
}

std::u16string LibXmlTable::TransformInPlace(std::size_t row, const std::shared_ptr<const Stylesheet>& stylesheet) {
  if (!nodes_) nodes_ = std::make_unique<RowNodes>(names_, rootName_, rowName_);
  // The last row may have got more columns since, but only before it was first looked at: it is made whole.
  while (nodes_->Count() < rowCount_) {
    const std::size_t made = nodes_->Count();
    nodes_->Begin();
    ForEachValue(made,
                 [this](std::size_t column, std::string_view value) { nodes_->Add(columnNames_[column], value); });
  }
  return nodes_->Transform(row, stylesheet);
}

std::string LibXmlTable::Xml() const {
  XmlRowWriter writer(shape_.Root, shape_.Row);
  for (std::size_t row = 0; row < rowCount_; ++row) {
    writer.BeginRow();
    ForEachValue(row,
                 [&](std::size_t column, std::string_view value) { writer.Utf8(shape_.Columns[column].Name, value); });
    writer.EndRow();
  }
  writer.Finish();
  return std::string(writer.Take());
}

void LibXmlTable::Save(const std::u16string& path) const {
  WriteFileWhole(ToUtf8(path), Xml());
}

}  // namespace quorvane::native

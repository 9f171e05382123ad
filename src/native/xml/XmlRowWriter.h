#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvane::native {

/// Writes a document of one kind piece by piece, byte for byte as LibXmlDocument::Xml gives it: a root, and below it
/// elements that hold attributes alone. UTF-8; characters that XML cannot hold become U+FFFD.
class XmlRowWriter {
 public:
  /// `root` and `row` are names of elements; they must outlive this.
  XmlRowWriter(std::string_view root, std::string_view row) : root_(root), row_(row) {}

  void BeginRow();
  /// The next attribute of the row; `name` is an XML name.
  void Text(std::string_view name, std::u16string_view value);
  void Number(std::string_view name, std::int32_t value);
  /// `value` is UTF-8 without NUL.
  void Utf8(std::string_view name, std::string_view value);
  void EndRow();
  /// The end of the document.
  void Finish();

  bool HasRows() const { return hasRows_; }
  /// What was written since the last Take. Good until the next call.
  std::string_view Take();

 private:
  std::string_view root_;
  std::string_view row_;
  std::string out_;
  std::string taken_;
  std::string utf8_;
  bool hasRows_ = false;
};

}  // namespace quorvane::native

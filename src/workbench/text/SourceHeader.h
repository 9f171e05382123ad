#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvane::workbench {

/// One line of a file: [begin, end) without its line end, `next` after it. Byte offsets, 0-based.
struct FileLineSpan {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::size_t next = 0;
};

/// The line that begins at `begin`, which is inside of `bytes`.
FileLineSpan FileLineAt(std::string_view bytes, std::size_t begin);

/// `Attribute Name = Value`, in pieces; views into the line.
struct AttributeLine {
  std::string_view name;   ///< with the member before it, if there is one
  std::string_view value;  ///< without the blanks around it
};

/// True when `line` is an Attribute line, and its pieces. Code in which the word is just a name is none.
bool ReadAttributeLine(std::string_view line, AttributeLine& attribute);

/// True for the Attribute line that names the component; `name` is then its raw value without quotes.
bool IsNameAttribute(const AttributeLine& attribute, std::string_view& name);

/// What a module file begins with and the host hides.
struct SourceHeader {
  std::size_t end = 0;         ///< byte offset after it
  std::int32_t lines = 0;      ///< lines of the file in it
  std::string_view component;  ///< the name of the component, raw bytes; empty when the header gives none
};

/// Finds the header: a byte order mark, VERSION, Object lines and Begin … End blocks, then Attribute VB_ lines. What
/// does not follow this form is no header, and a block without its end is one only up to the Attribute lines.
SourceHeader ReadSourceHeader(std::string_view bytes);

}  // namespace quorvane::workbench

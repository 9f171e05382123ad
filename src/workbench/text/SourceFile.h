#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::workbench {

struct FileLineSpan;
class Sieve;

/// The bytes of one module file as they stand on disk, and which of them are lines of code.
///
/// A file is a header that the host hides (VERSION, Object and BEGIN … END lines, the Attribute lines after them),
/// then code in which single Attribute lines are hidden too. All offsets are bytes, 0-based; line numbers are 1-based.
///
/// Where the lines are is found out at the first question that needs it, so that a file may be made on any thread but
/// then serves one thread at a time, readers included. A file in which a search cannot match need not even be kept: it
/// is read again should somebody ask for more than its name and header.
class SourceFile {
 public:
  /// One line of code; the line end is not part of it. CR LF, a lone LF and a lone CR end a line.
  struct Line {
    std::uint32_t begin = 0;
    std::uint32_t length = 0;

    bool operator==(const Line&) const = default;
  };
  /// One hidden line inside the code, with its line end.
  struct HiddenLine {
    std::int32_t after = 0;  ///< the line of code that it stands after; 0 for those before the first
    std::uint32_t begin = 0;
    std::uint32_t end = 0;  ///< exclusive
  };

  SourceFile() = default;
  /// Takes any bytes; what is no header is code. Never raises. `bytes` holds less than 2^31 bytes.
  explicit SourceFile(std::string bytes);

  /// The file that `bytes` were read from, sieved: where `sieve` lets nothing through, only the header is kept, and
  /// `readAgain` gives the bytes when they are needed, or raises. Takes the bytes by view, so that the caller's buffer
  /// serves for the next file.
  SourceFile(std::string_view bytes, std::shared_ptr<const Sieve> sieve, std::function<std::string()> readAgain);

  /// True when the file has lines of code and surely holds nothing of what `sieve` looks for.
  bool Lacks(const Sieve& sieve) const;

  const std::string& Bytes() const { return readAgain_ ? Whole().bytes_ : bytes_; }
  /// What is in memory: all bytes or, of a file that a sieve held back, those of the header. Reads nothing.
  std::string_view Kept() const { return bytes_; }
  /// Known from the start, unlike the lines.
  std::int32_t CountOfLines() const { return readAgain_ ? Whole().countOfLines_ : countOfLines_; }
  const std::vector<Line>& Lines() const;
  /// Line `index`, 0-based, which exists; the first and the last one are found without all the others.
  Line LineAt(std::size_t index) const;
  const std::vector<HiddenLine>& Hidden() const { return readAgain_ ? Whole().hidden_ : hidden_; }  ///< by `begin`
  /// The bytes before the code.
  std::string_view Header() const { return std::string_view(bytes_).substr(0, codeBegin_); }
  std::uint32_t CodeBegin() const { return codeBegin_; }  ///< where the header ends

  std::string_view LineBytes(std::size_t index) const {  ///< 0-based, without the line end
    const Line& line = Lines()[index];
    return std::string_view(Bytes()).substr(line.begin, line.length);
  }
  /// The line end after a line: "\r\n", "\n", "\r", or empty at the end of the file. 0-based.
  std::string_view LineEnd(std::size_t index) const;

  /// 1-based line of the file in which the line of code `line` (1-based) stands; it counts header and hidden lines.
  std::int32_t FileLine(std::int32_t line) const;
  /// The way back: the line of code that stands in line `fileLine` of the file; 0 when that is hidden or does not exist.
  std::int32_t CodeLine(std::int32_t fileLine) const;

  /// The value of Attribute VB_Name, raw bytes, without its quotes; empty when there is none.
  const std::string& Name() const { return name_; }

 private:
  /// Everything but the header.
  void TakeCode();
  /// The same file read again.
  const SourceFile& Whole() const;
  /// True when the line is a hidden one, which is then noted. `linesAbove` counts the lines of code before it.
  bool TakeHidden(const FileLineSpan& span, std::size_t linesAbove);
  Line FirstLine() const;
  Line LastLine() const;

  std::string bytes_;                ///< of the header alone while readAgain_ is set
  mutable std::vector<Line> lines_;  ///< empty until it is asked for, then all of them
  std::int32_t countOfLines_ = 0;
  std::vector<HiddenLine> hidden_;
  std::uint32_t codeBegin_ = 0;
  std::int32_t headerLines_ = 0;
  std::string name_;
  std::shared_ptr<const Sieve> sieve_;      ///< the one that the file went through when it was read, or null
  std::function<std::string()> readAgain_;  ///< set where that sieve let nothing through
  mutable std::unique_ptr<const SourceFile> whole_;
};

}  // namespace quorvane::workbench

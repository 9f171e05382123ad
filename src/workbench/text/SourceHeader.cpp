#include "workbench/text/SourceHeader.h"

#include <algorithm>
#include <cstring>

namespace quorvane::workbench {

// The header is read line by line from the beginning of the file and ends where a line does not fit. A line that may
// belong to it, such as a blank one or one inside of a block, is passed over and counts only when a later one shows that
// it does. A file that ends inside of a block has no header: rather header lines in sight than code that nobody finds.
// Everything works on raw bytes; the one place where a code page matters, the second byte of a two-byte character that
// looks like an ASCII sign, is handled where names are read.

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t";

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

bool EqualsNoCase(std::string_view a, std::string_view lower) {
  return a.size() == lower.size() &&
         std::equal(a.begin(), a.end(), lower.begin(), [](char x, char y) { return Lower(x) == y; });
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsNameByte(char c) {
  return (Lower(c) >= 'a' && Lower(c) <= 'z') || IsDigit(c) || c == '_' || (c & 0x80) != 0;
}

std::string_view TrimLeft(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}
std::string_view Trim(std::string_view text) {
  text = TrimLeft(text);
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

/// Takes the word at the beginning of `rest`, blanks before it skipped.
std::string_view TakeWord(std::string_view& rest) {
  rest = TrimLeft(rest);
  const auto end = static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), IsNameByte) - rest.begin());
  const std::string_view word = rest.substr(0, end);
  rest.remove_prefix(end);
  return word;
}

/// Length of the part of a name that `text` begins with; 0 when there is none. The second byte of a two-byte character
/// may look like any ASCII character from @ on.
std::size_t NamePartLength(std::string_view text) {
  if (text.starts_with('[')) {
    for (std::size_t i = 1; i < text.size(); ++i) {
      const bool closes = text[i] == ']' && (i + 1 == text.size() || std::strchr(". \t=", text[i + 1]) != nullptr);
      if (closes) return i + 1;
    }
    return 0;
  }
  std::size_t i = 0;
  while (i < text.size() && IsNameByte(text[i])) {
    const bool beyondAscii = (text[i] & 0x80) != 0;
    ++i;
    if (beyondAscii && i < text.size() && text[i] >= 0x40 && text[i] < 0x7F) ++i;
  }
  return i;
}

bool IsVersionLine(std::string_view line) {
  if (!EqualsNoCase(TakeWord(line), "version") || !line.starts_with(' ')) return false;
  line = TrimLeft(line);
  const std::size_t digits = std::min(line.find_first_not_of("0123456789."), line.size());
  if (digits == 0 || !IsDigit(line[0])) return false;
  line = Trim(line.substr(digits));
  return line.empty() || EqualsNoCase(line, "class");
}

bool IsObjectLine(std::string_view line) {
  return EqualsNoCase(TakeWord(line), "object") && TrimLeft(line).starts_with('=');
}

/// +1 for a line that opens a block, -1 for one that closes a block, 0 for any other.
int BlockStep(std::string_view line) {
  const std::string_view word = TakeWord(line);
  const bool alone = TrimLeft(line).empty();
  const bool followed = alone || kBlanks.find(line[0]) != std::string_view::npos;
  if (EqualsNoCase(word, "begin") || EqualsNoCase(word, "beginproperty")) return followed ? 1 : 0;
  if (EqualsNoCase(word, "end") || EqualsNoCase(word, "endproperty")) return alone ? -1 : 0;
  return 0;
}

bool IsHeaderAttribute(std::string_view line, AttributeLine& attribute) {
  return ReadAttributeLine(line, attribute) && EqualsNoCase(attribute.name.substr(0, 3), "vb_");
}

/// Walks over the lines from the beginning of the file; `header_` grows to what is known to belong to it.
class HeaderReader {
 public:
  explicit HeaderReader(std::string_view bytes) : bytes_(bytes) {
    if (bytes.starts_with(kByteOrderMark)) header_.end = kByteOrderMark.size();
    Load(header_.end);
  }

  SourceHeader Read() {
    const SourceHeader nothing = header_;
    if (!AtEnd() && IsVersionLine(Line())) {
      Step();
      if (!ReadForm()) return nothing;
    }
    ReadAttributes();
    return header_;
  }

 private:
  /// Object lines and blocks; false when a block runs to the end of the file.
  bool ReadForm() {
    bool objects = true;
    while (!AtEnd()) {
      if (objects && IsObjectLine(Line())) {
        Accept();
      } else if (BlockStep(Line()) > 0) {
        objects = false;
        if (!ReadBlock()) return false;
      } else if (Trim(Line()).empty()) {
        Step();
      } else {
        return true;
      }
    }
    return true;
  }

  bool ReadBlock() {
    AttributeLine attribute;
    for (int depth = 0; !AtEnd();) {
      if (IsHeaderAttribute(Line(), attribute)) return true;
      depth += BlockStep(Line());
      if (depth == 0) {
        Accept();
        return true;
      }
      Step();
    }
    return false;
  }

  void ReadAttributes() {
    AttributeLine attribute;
    while (!AtEnd() && IsHeaderAttribute(Line(), attribute)) {
      std::string_view name;
      if (header_.component.empty() && IsNameAttribute(attribute, name)) header_.component = name;
      Accept();
    }
  }

  bool AtEnd() const { return line_.begin == bytes_.size(); }
  std::string_view Line() const { return bytes_.substr(line_.begin, line_.end - line_.begin); }

  void Load(std::size_t begin) {
    line_ = begin < bytes_.size() ? FileLineAt(bytes_, begin) : FileLineSpan{bytes_.size(), bytes_.size(), begin};
  }
  /// Past a line that belongs to the header if a later one does.
  void Step() {
    ++passed_;
    Load(line_.next);
  }
  void Accept() {
    Step();
    header_.end = line_.begin;
    header_.lines = passed_;
  }

  std::string_view bytes_;
  FileLineSpan line_;
  std::int32_t passed_ = 0;
  SourceHeader header_;
};

}  // namespace

FileLineSpan FileLineAt(std::string_view bytes, std::size_t begin) {
  // In small windows: where one of the two line ends never occurs, no search for it runs to the end of the file.
  constexpr std::size_t kWindow = 256;
  for (std::size_t at = begin; at < bytes.size(); at += kWindow) {
    const std::string_view window = bytes.substr(at, kWindow);
    const std::size_t lf = window.find('\n');
    const std::size_t cr = window.substr(0, lf).find('\r');
    if (cr != std::string_view::npos) {
      const std::size_t end = at + cr;
      return {begin, end, end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1)};
    }
    if (lf != std::string_view::npos) return {begin, at + lf, at + lf + 1};
  }
  return {begin, bytes.size(), bytes.size()};
}

bool ReadAttributeLine(std::string_view line, AttributeLine& attribute) {
  if (!EqualsNoCase(TakeWord(line), "attribute") || TrimLeft(line).size() == line.size()) return false;
  line = TrimLeft(line);
  std::size_t length = 0;
  while (true) {
    const std::size_t part = NamePartLength(line.substr(length));
    if (part == 0) return false;
    length += part;
    if (length == line.size() || line[length] != '.') break;
    ++length;
  }
  const std::string_view rest = TrimLeft(line.substr(length));
  if (!rest.starts_with('=')) return false;
  attribute = {line.substr(0, length), Trim(rest.substr(1))};
  return true;
}

bool IsNameAttribute(const AttributeLine& attribute, std::string_view& name) {
  if (!EqualsNoCase(attribute.name, "vb_name")) return false;
  name = attribute.value;
  if (name.starts_with('"')) name.remove_prefix(1);
  if (name.ends_with('"')) name.remove_suffix(1);
  return true;
}

SourceHeader ReadSourceHeader(std::string_view bytes) {
  return HeaderReader(bytes).Read();
}

}  // namespace quorvane::workbench

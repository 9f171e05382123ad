#include "workbench/text/MemberDeclaration.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace quorvane::workbench {

// Members are found by the first words of each statement, without a parser. Lines joined by the continuation mark count
// as one, with the first and the last of them kept. Whether a word declares a member depends on where it stands: inside
// of a procedure Dim and Static make local variables. A word that can only stand outside, such as Public, also ends a
// procedure whose End is missing, so that one broken procedure does not hide the rest of the module.

namespace {

constexpr bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}

constexpr bool EndsName(char c) {
  return IsBlank(c) || c == '(' || c == ')' || c == ',' || c == ':' || c == '"' || c == '\'' || c == '=';
}

constexpr char ToLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

constexpr bool IsAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}

void SkipBlanks(std::string_view& text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
}

/// Takes the next run of bytes up to a blank or punctuation; may be empty.
std::string_view TakeWord(std::string_view& text) {
  SkipBlanks(text);
  const auto length = static_cast<std::size_t>(std::find_if(text.begin(), text.end(), EndsName) - text.begin());
  const std::string_view word = text.substr(0, length);
  text.remove_prefix(length);
  return word;
}

std::string_view PeekWord(std::string_view text) {
  return TakeWord(text);
}

bool Is(std::string_view word, std::string_view lower) {
  return word.size() == lower.size() &&
         std::equal(word.begin(), word.end(), lower.begin(), [](char a, char b) { return ToLower(a) == b; });
}

bool IsOneOf(std::string_view word, std::initializer_list<std::string_view> lower) {
  return std::any_of(lower.begin(), lower.end(), [&](std::string_view one) { return Is(word, one); });
}

/// `name` without the character that tells its type. An @ after a byte beyond ASCII may be the second half of a
/// character and stays.
std::string_view WithoutSuffix(std::string_view name) {
  if (name.size() < 2 || std::string_view("$%&!#@").find(name.back()) == std::string_view::npos) return name;
  if (name.back() == '@' && !IsAscii(name[name.size() - 2])) return name;
  return name.substr(0, name.size() - 1);
}

/// Cuts `text` at the first of `separator` outside of strings, brackets (when `nested`) and the comment at the end;
/// returns the piece before it and leaves the rest. A comment is dropped.
std::string_view TakePiece(std::string_view& text, char separator, bool nested) {
  int depth = 0;
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '"') quoted = !quoted;
    if (quoted) continue;
    if (c == '(') ++depth;
    if (c == ')') --depth;
    if (c == '\'' || (c == separator && (!nested || depth <= 0))) {
      const std::string_view piece = text.substr(0, i);
      text = c == '\'' ? std::string_view() : text.substr(i + 1);
      return piece;
    }
  }
  return std::exchange(text, {});
}

class DeclarationScan {
 public:
  std::vector<MemberDeclaration> Run(const std::vector<std::string_view>& lines) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      first_ = static_cast<std::int32_t>(i);
      std::string_view text = lines[i];
      std::string joined;
      if (IsContinued(lines[i])) {
        while (i + 1 < lines.size() && IsContinued(lines[i])) {
          joined.append(lines[i].substr(0, lines[i].find_last_of('_')));
          ++i;
        }
        joined.append(lines[i]);
        text = joined;
      }
      last_ = static_cast<std::int32_t>(i);
      while (!text.empty()) {
        const std::string_view statement = TakePiece(text, ':', false);
        if (Is(PeekWord(statement), "rem")) break;
        Statement(statement);
      }
    }
    return std::move(found_);
  }

 private:
  void Add(MemberKind kind, std::string_view text) {
    const std::string_view before = text;
    const std::string_view name = WithoutSuffix(TakeWord(text));
    if (name.empty()) return;
    const auto end = static_cast<std::size_t>(name.data() - before.data()) + name.size();
    found_.push_back({kind, std::string(name), std::string(before.substr(end)), first_, last_});
  }

  void AddList(MemberKind kind, std::string_view text) {
    while (!text.empty()) {
      std::string_view one = TakePiece(text, ',', true);
      std::string_view behind = one;
      if (Is(TakeWord(behind), "withevents")) one = behind;
      Add(kind, one);
    }
  }

  void Statement(std::string_view text) {
    bool modified = false, owned = false;  // owned: by a word that never stands in a procedure
    std::string_view word = TakeWord(text);
    while (IsOneOf(word, {"public", "private", "friend", "global", "static", "dim"})) {
      modified = true;
      owned = owned || !IsOneOf(word, {"static", "dim"});
      std::string_view behind = text;
      const std::string_view next = TakeWord(behind);
      if (!IsKeyword(next)) break;
      word = next;
      text = behind;
    }
    if (Is(word, "end")) {
      if (IsOneOf(PeekWord(text), {"sub", "function", "property"})) inProcedure_ = false;
      return;
    }
    if (Procedure(word, text)) return;
    if (owned) inProcedure_ = false;
    if (!inProcedure_) Declaration(word, text, modified);
  }

  static bool IsKeyword(std::string_view word) {
    return IsOneOf(word, {"public", "private", "friend", "global", "static", "dim", "sub", "function", "property",
                          "event", "declare", "const", "type", "enum"});
  }

  bool Procedure(std::string_view word, std::string_view text) {
    MemberKind kind = MemberKind::Sub;
    if (Is(word, "function")) {
      kind = MemberKind::Function;
    } else if (Is(word, "property")) {
      const std::string_view accessor = TakeWord(text);
      if (!IsOneOf(accessor, {"get", "let", "set"})) return false;
      kind = Is(accessor, "get")   ? MemberKind::PropertyGet
             : Is(accessor, "let") ? MemberKind::PropertyLet
                                   : MemberKind::PropertySet;
    } else if (!Is(word, "sub")) {
      return false;
    }
    Add(kind, text);
    inProcedure_ = true;
    return true;
  }

  void Declaration(std::string_view word, std::string_view text, bool modified) {
    if (Is(word, "event")) {
      Add(MemberKind::Event, text);
    } else if (Is(word, "declare")) {
      TakeWord(text);
      Add(MemberKind::Declare, text);
    } else if (Is(word, "const")) {
      AddList(MemberKind::Const, text);
    } else if (IsOneOf(word, {"type", "enum"})) {
      Add(Is(word, "type") ? MemberKind::Type : MemberKind::Enum, text);
    } else if (modified) {
      AddList(MemberKind::Variable, text);
    }
  }

  std::vector<MemberDeclaration> found_;
  bool inProcedure_ = false;
  std::int32_t first_ = 0, last_ = 0;
};

}  // namespace

bool IsContinued(std::string_view line) {
  return line.size() >= 2 && line.back() == '_' && IsBlank(line[line.size() - 2]);
}

std::string FoldName(std::string_view name) {
  std::string folded(name);
  for (std::size_t i = 0; i < folded.size(); ++i) {
    if (i == 0 || IsAscii(name[i - 1])) folded[i] = ToLower(name[i]);
  }
  return folded;
}

std::vector<MemberDeclaration> ScanDeclarations(const std::vector<std::string_view>& lines) {
  return DeclarationScan().Run(lines);
}

}  // namespace quorvane::workbench

#include "workbench/text/ProcedureMap.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "base/Error.h"
#include "workbench/text/CaseFold.h"
#include "workbench/text/ModuleText.h"
#include "workbench/text/StatementScanner.h"

namespace quorvane::workbench {

// Most lines neither begin nor end a procedure, and the first words of their statements tell. They are looked at as
// they are stored, bytes of the file or typed text; only a line that may matter is decoded and taken apart, whole with
// its continuations.

namespace {

using Kind = Statement::Kind;

template <class Char>
bool IsContinued(std::basic_string_view<Char> line) {
  return line.size() >= 2 && line.back() == '_' && (line[line.size() - 2] == ' ' || line[line.size() - 2] == '\t');
}

/// The small letter at `at`; 0 after the end.
template <class Char>
Char LetterAt(std::basic_string_view<Char> line, std::size_t at) {
  if (at >= line.size()) return 0;
  const Char c = line[at];
  return c >= 'A' && c <= 'Z' ? static_cast<Char>(c + 32) : c;
}

bool IsNameCharacter(char32_t c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c >= 0x80;
}

template <class Char>
std::size_t SkipBlanks(std::basic_string_view<Char> line, std::size_t at) {
  while (at < line.size() && (line[at] == ' ' || line[at] == '\t')) ++at;
  return at;
}

/// Whether the whole word at `at` is `keyword`, which is in small letters.
template <class Char>
bool HasWord(std::basic_string_view<Char> line, std::size_t at, std::string_view keyword) {
  for (std::size_t i = 0; i < keyword.size(); ++i) {
    if (LetterAt(line, at + i) != static_cast<Char>(keyword[i])) return false;
  }
  const std::size_t end = at + keyword.size();
  return end >= line.size() || !IsNameCharacter(static_cast<std::make_unsigned_t<Char>>(line[end]));
}

template <class Char>
bool HasProcedureWord(std::basic_string_view<Char> line, std::size_t at) {
  switch (LetterAt(line, at)) {
    case 'f':
      return HasWord(line, at, "function");
    case 'p':
      return HasWord(line, at, "property");
    case 's':
      return HasWord(line, at, "sub");
    default:
      return false;
  }
}

/// True unless its first words rule out that the statement at `at`, which is no blank, begins or ends a procedure.
template <class Char>
bool MayMatter(std::basic_string_view<Char> line, std::size_t at) {
  const Char first = LetterAt(line, at);
  switch (first) {
    case 'e':
      return HasWord(line, at, "end") && HasProcedureWord(line, SkipBlanks(line, at + 3));
    case 'f':
      return HasWord(line, at, "friend") || HasWord(line, at, "function");
    case 'g':
      return HasWord(line, at, "global");
    case 'p':
      return HasWord(line, at, "public") || HasWord(line, at, "private") || HasWord(line, at, "property");
    case 's':
      return HasWord(line, at, "sub") || HasWord(line, at, "static");
    default:
      return first >= '0' && first <= '9';
  }
}

/// What a first look at a line of code tells.
struct Glance {
  bool empty = false;      ///< blanks alone
  bool comment = false;    ///< begins with an apostrophe
  bool directive = false;  ///< begins with #
  bool matters = false;    ///< may begin or end a procedure
  bool several = false;    ///< may hold several statements
  bool continued = false;
};

template <class Char>
Glance GlanceAt(std::basic_string_view<Char> line) {
  Glance glance;
  glance.continued = IsContinued(line);
  const std::size_t first = SkipBlanks(line, 0);
  glance.empty = first == line.size();
  if (glance.empty) return glance;
  glance.comment = line[first] == '\'';
  glance.directive = line[first] == '#';
  if (glance.comment) return glance;
  glance.matters = glance.continued || MayMatter(line, first);
  for (std::size_t colon = line.find(Char{':'}, first); colon != line.npos; colon = line.find(Char{':'}, colon + 1)) {
    glance.several = true;
    glance.matters = glance.matters || MayMatter(line, SkipBlanks(line, colon + 1));
  }
  return glance;
}

std::u16string Folded(std::u16string_view name) {
  std::u16string folded(name);
  std::transform(folded.begin(), folded.end(), folded.begin(), CaseFold::Of);
  return folded;
}

/// One walk over the lines of a module. Lines are 1-based.
class MapBuilder {
 public:
  explicit MapBuilder(const ModuleText& text) : text_(text), count_(text.Count()) {}

  void Build() {
    while (last_ < count_) {
      first_ = ++last_;
      const Glance glance = Look(first_);
      for (bool more = glance.continued; more && last_ < count_; more = Look(last_).continued) ++last_;
      if (glance.empty || glance.comment) continue;
      const bool declaring = procedures_.empty();
      if (glance.matters || (declaring && (glance.directive || glance.several || MayBeRemark()))) {
        ReadLogicalLine();
      } else if (declaring) {
        NoteDeclaration();
      }
    }
    Close();
  }

  std::int32_t DeclarationLines() const { return procedures_.empty() ? count_ : declarationLines_; }
  std::vector<Procedure> TakeProcedures() { return std::move(procedures_); }

 private:
  Glance Look(std::int32_t line) const {
    return text_.IsSpan(line - 1) ? GlanceAt(text_.SpanBytes(line - 1)) : GlanceAt(text_.TypedText(line - 1));
  }

  bool MayBeRemark() {
    const std::u16string_view line = text_.LineText(first_ - 1, buffer_);
    const std::size_t at = line.find_first_not_of(u" \t");
    return LetterAt(line, at) == u'r';
  }

  void ReadLogicalLine() {
    logical_.clear();
    for (std::int32_t line = first_; line <= last_; ++line) {
      const std::u16string_view piece = text_.LineText(line - 1, buffer_);
      const bool continued = line < last_ || IsContinued(piece);
      logical_ += piece.substr(0, piece.size() - (continued ? 1 : 0));
      // A string ends with its line, also without a closing quote.
      if (std::count(piece.begin(), piece.end(), u'"') % 2 != 0) logical_ += u'"';
    }
    StatementScanner scanner(logical_);
    Statement statement;
    while (scanner.Next(statement)) {
      if (!Take(statement)) return;
    }
  }

  /// False when what follows on the same line has no meaning.
  bool Take(const Statement& statement) {
    switch (statement.kind) {
      case Kind::Header:
        Begin(statement);
        break;
      case Kind::End:
        if (inBody_) {
          End(last_);
          return false;
        }
        NoteDeclaration();
        break;
      case Kind::If:
        blocks_.push_back(false);
        break;
      case Kind::EndIf:
        CloseBlock();
        break;
      case Kind::Other:
        NoteDeclaration();
        break;
      case Kind::None:
      case Kind::Directive:
        break;
    }
    return true;
  }

  void NoteDeclaration() {
    if (!procedures_.empty()) return;
    declarationLines_ = last_;
    if (!blocks_.empty()) blocks_.back() = true;
  }

  void CloseBlock() {
    if (blocks_.empty()) return;
    const bool declares = blocks_.back();
    blocks_.pop_back();
    if (declares) NoteDeclaration();
  }

  void Begin(const Statement& header) {
    if (inBody_) End(first_ - 1);
    if (procedures_.empty()) {
      declarationLines_ = std::min(declarationLines_, first_ - 1);
      nextStart_ = declarationLines_ + 1;
    }
    procedures_.push_back({header.name, header.procKind, nextStart_, 0});
    inBody_ = true;
  }

  /// The open procedure ends with line `line`.
  void End(std::int32_t line) {
    procedures_.back().countOfLines = line + 1 - procedures_.back().startLine;
    nextStart_ = line + 1;
    inBody_ = false;
  }

  /// Lines after the last procedure belong to it.
  void Close() {
    if (!procedures_.empty()) End(count_);
  }

  const ModuleText& text_;
  const std::int32_t count_;
  std::int32_t first_ = 0;  ///< of the logical line
  std::int32_t last_ = 0;
  std::vector<Procedure> procedures_;
  std::int32_t declarationLines_ = 0;
  std::int32_t nextStart_ = 1;  ///< where the next procedure starts
  bool inBody_ = false;         ///< after a header, before its End
  std::vector<bool> blocks_;    ///< the open blocks of the compiler: does one hold a declaration?
  std::u16string buffer_;
  std::u16string logical_;
};

}  // namespace

ProcedureMap::ProcedureMap(const ModuleText& text) : countOfLines_(text.Count()) {
  MapBuilder builder(text);
  builder.Build();
  declarationLines_ = builder.DeclarationLines();
  procedures_ = builder.TakeProcedures();
}

const Procedure* ProcedureMap::AtLine(std::int32_t line) const {
  if (line > countOfLines_) return nullptr;
  const auto behind = std::partition_point(procedures_.begin(), procedures_.end(),
                                           [line](const Procedure& procedure) { return procedure.startLine <= line; });
  return behind == procedures_.begin() ? nullptr : &*(behind - 1);
}

const Procedure& ProcedureMap::Named(std::u16string_view name, vbide::ProcKind kind, const Procedure* preferred) const {
  const std::u16string wanted = Folded(name);
  const Procedure* best = nullptr;
  int bestRank = 0;
  for (const Procedure& procedure : procedures_) {
    if (procedure.kind != kind || procedure.name.size() != wanted.size()) continue;
    const bool exact = procedure.name == name;
    if (!exact && Folded(procedure.name) != wanted) continue;
    const int rank = 1 + (exact ? 2 : 0) + (&procedure == preferred ? 1 : 0);
    if (rank > bestRank) {
      best = &procedure;
      bestRank = rank;
    }
  }
  if (best == nullptr) RaiseError(ErrorNumber::NotDefined, u"Sub or Function not defined: " + std::u16string(name));
  return *best;
}

}  // namespace quorvane::workbench

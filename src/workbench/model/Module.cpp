#include "workbench/model/Module.h"

#include <algorithm>

#include "base/Checked.h"
#include "base/Error.h"
#include "base/Text.h"
#include "platform/ScreenColumns.h"

namespace quorvane::workbench {

// Find reads as little as it can. While the text is that of the file and every match holds some ASCII characters, the
// raw bytes of the whole range are scanned for those, hidden lines included; a hit is mapped to its line by binary
// search, and only that line is decoded and given to the matcher, which decides. An edited text is taken line by line,
// each line that still is a span of the file through the same sieve.

namespace {

bool AreAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; });
}

std::u16string Hex(char16_t c) {
  std::u16string digits;
  for (int shift = 12; shift >= 0; shift -= 4) digits += u"0123456789ABCDEF"[c >> shift & 0xF];
  return digits;
}

[[noreturn]] void RaiseLacking(const CodePage& page, std::int32_t line, std::u16string_view text, std::size_t at) {
  const std::size_t units = IsHighSurrogate(text[at]) && at + 1 < text.size() ? 2 : 1;
  RaiseError(ErrorNumber::InvalidProcedureCall,
             u"Line " + ToText(line) + u", column " + ToText(static_cast<std::int64_t>(at) + 1) + u": code page " +
                 FromUtf8(page.Name()) + u" has no character " + std::u16string(text.substr(at, units)) + u" (U+" +
                 Hex(text[at]) + u")");
}

/// What the text of `bytes` encodes to; the same bytes when the code page cannot tell.
std::string Canonical(const CodePage& page, std::string_view bytes) {
  std::u16string text;
  page.Decode(bytes, text);
  return page.Encoded(text).value_or(std::string(bytes));
}

ByteScanner ScannerFor(const LineMatcher& matcher, const MatchOptions& options) {
  if (!matcher.AsciiRun().empty()) return ByteScanner(matcher.AsciiRun(), options.matchCase);
  return matcher.NeedsBeyondAscii() ? ByteScanner::BeyondAscii() : ByteScanner();
}

}  // namespace

/// The part of the module that a search covers. Lines are 1-based and exist; `startColumn` is of the first line,
/// `endColumn` of the last.
struct Module::Bounds {
  std::int32_t startLine = 1;
  std::int32_t startColumn = 1;
  std::int32_t endLine = 1;
  std::int32_t endColumn = 1;
};

Module::Module(std::shared_ptr<const SourceFile> file, const CodePage& page, TurnClock& clock, const CodePage* columns)
    : text_(file, page, clock),
      clock_(clock),
      columns_(columns != nullptr ? *columns : page),
      saved_(std::move(file)) {}

void Module::Reopen(const CodePage& page) {
  text_ = ModuleText(saved_, page, clock_);
  Changed.Raise();
}

std::shared_ptr<vbide::CodePane> Module::CodePane() {
  if (!pane_ && paneMaker_) pane_ = paneMaker_();
  return pane_;
}

std::int32_t Module::CountOfDeclarationLines() const {
  return Map().CountOfDeclarationLines();
}

std::u16string Module::Lines(std::int32_t start, std::int32_t count) const {
  if (count == 1 && start >= 1 && start <= text_.Count()) return std::u16string(Read(start).text);
  return text_.Joined(std::int64_t{start} - 1, count);
}

void Module::InsertLines(std::int32_t line, std::u16string_view text) {
  if (line < 1) RaiseError(ErrorNumber::SubscriptOutOfRange);
  text_.Insert(std::min(line - 1, text_.Count()), text);
  Changed.Raise();
}

void Module::DeleteLines(std::int32_t start, std::int32_t count) {
  if (start < 1 || count < 0 || std::int64_t{start} - 1 + count > text_.Count())
    RaiseError(ErrorNumber::SubscriptOutOfRange);
  if (count == 0) return;
  text_.Delete(start - 1, count);
  Changed.Raise();
}

bool Module::Undo() {
  if (!text_.Undo()) return false;
  Changed.Raise();
  return true;
}

bool Module::Redo() {
  if (!text_.Redo()) return false;
  Changed.Raise();
  return true;
}

const ProcedureMap& Module::Map() const {
  if (mapRevision_ != text_.Revision()) {
    map_ = ProcedureMap(text_);
    lastProcedure_ = nullptr;
    mapRevision_ = text_.Revision();
  }
  return map_;
}

std::u16string Module::ProcOfLine(std::int32_t line, vbide::ProcKind& kind) const {
  const Procedure* const procedure = Map().AtLine(line);
  lastProcedure_ = procedure;
  kind = procedure != nullptr ? procedure->kind : vbide::ProcKind::Proc;
  return procedure != nullptr ? procedure->name : std::u16string();
}

const Procedure& Module::Named(std::u16string_view name, vbide::ProcKind kind) const {
  const ProcedureMap& map = Map();  // an edit makes it anew and forgets the last procedure
  return map.Named(name, kind, lastProcedure_);
}

std::int32_t Module::ProcStartLine(std::u16string_view name, vbide::ProcKind kind) const {
  return Named(name, kind).startLine;
}

std::int32_t Module::ProcCountLines(std::u16string_view name, vbide::ProcKind kind) const {
  return Named(name, kind).countOfLines;
}

const Module::Search& Module::Prepared(std::u16string_view target, const MatchOptions& options) const {
  if (search_ && search_->target == target && search_->options == options) return *search_;
  auto search = std::make_unique<Search>();
  search->target = target;
  search->options = options;
  search->matcher = MakeLineMatcher(target, options);
  search->scanner = ScannerFor(*search->matcher, options);
  search->sieve = SieveOf(*search->matcher, options);
  search_ = std::move(search);
  return *search_;
}

bool Module::SurelyLacks(std::u16string_view target, bool wholeWord, bool matchCase, bool patternSearch) const {
  if (!text_.Pristine()) return false;
  try {
    return text_.Opened().Lacks(Prepared(target, {wholeWord, matchCase, patternSearch}).sieve);
  } catch (const Error&) {
    return false;  // the search itself tells what is wrong
  }
}

bool Module::SurelyLacksAll(const std::vector<std::string>& texts, bool matchCase) const {
  return text_.Pristine() && !texts.empty() && text_.Opened().Lacks(Sieve(texts, matchCase));
}

std::optional<Module::Bounds> Module::ClipToModule(const vbide::Selection& range) const {
  constexpr std::int32_t kLineEnd = 0x7FFFFFFF;
  Bounds bounds = {range.StartLine, range.StartColumn, range.EndLine, range.EndColumn};
  if (bounds.startLine < 1) bounds = {1, 1, bounds.endLine, bounds.endColumn};
  if (bounds.endLine > text_.Count()) {
    bounds.endLine = text_.Count();
    bounds.endColumn = kLineEnd;
  }
  if (bounds.startLine > bounds.endLine) return std::nullopt;
  return bounds;
}

bool Module::Find(std::u16string_view target, vbide::Selection& range, bool wholeWord, bool matchCase,
                  bool patternSearch) const {
  const Search& search = Prepared(target, {wholeWord, matchCase, patternSearch});
  const auto bounds = ClipToModule(range);
  if (target.empty() || !bounds) return false;
  // A search goes on where the last one ended, so that the next match is often in the first line.
  if (FindInLine(search, bounds->startLine, *bounds, range)) return true;
  const bool scans = text_.Pristine() && search.scanner.Usable();
  return scans ? FindInFile(search, *bounds, range) : FindByLines(search, *bounds, range);
}

const Module::ReadLine& Module::Read(std::int32_t line) const {
  if (readLine_.number == line && readLine_.revision == text_.Revision()) return readLine_;
  readLine_ = {};
  const std::u16string_view text = text_.LineText(line - 1, lineBuffer_);
  readLine_ = {line, text_.Revision(), text, IsAscii(text)};
  return readLine_;
}

std::int32_t Module::ToColumn(const ReadLine& line, std::size_t unit) const {
  return Checked32(line.ascii ? static_cast<std::int64_t>(unit) + 1 : ColumnOfUnit(columns_, line.text, unit));
}

std::size_t Module::ToUnit(const ReadLine& line, std::int32_t column, InsideWide inside) const {
  if (line.ascii) return std::min(line.text.size(), static_cast<std::size_t>(std::max(column, 1) - 1));
  return UnitOfColumn(columns_, line.text, column, inside);
}

bool Module::FindInLine(const Search& search, std::int32_t line, const Bounds& bounds, vbide::Selection& found) const {
  const ReadLine& read = Read(line);
  const std::size_t from = line == bounds.startLine ? ToUnit(read, bounds.startColumn, InsideWide::Next) : 0;
  // The exclusive end takes no half of a wide character.
  const std::size_t to =
      line == bounds.endLine ? ToUnit(read, bounds.endColumn, InsideWide::Character) : read.text.size();
  LineMatch match;
  if (from >= to || !search.matcher->Next(read.text, from, to, match)) return false;
  found = {line, ToColumn(read, match.begin), line, ToColumn(read, match.end)};
  return true;
}

/// After the first line, in a text that is the file's.
bool Module::FindInFile(const Search& search, const Bounds& bounds, vbide::Selection& found) const {
  const SourceFile& file = text_.Opened();
  const SourceFile::Line first = file.LineAt(static_cast<std::size_t>(bounds.startLine) - 1);
  const SourceFile::Line last = file.LineAt(static_cast<std::size_t>(bounds.endLine) - 1);
  const std::string_view bytes = std::string_view(file.Bytes()).substr(0, last.begin + last.length);
  std::size_t hit = search.scanner.Find(bytes, first.begin + first.length);
  while (hit != bytes.npos) {
    const auto begin = file.Lines().begin();  // made at the first hit
    const auto behind = std::partition_point(begin + bounds.startLine, begin + bounds.endLine,
                                             [hit](const SourceFile::Line& l) { return l.begin <= hit; });
    const auto line = static_cast<std::int32_t>(behind - begin);
    // A hit after the end of its line is in a line end or in a hidden line.
    const bool isCode = hit < (behind - 1)->begin + (behind - 1)->length;
    if (isCode && FindInLine(search, line, bounds, found)) return true;
    if (line >= bounds.endLine) return false;
    hit = search.scanner.Find(bytes, behind->begin);
  }
  return false;
}

/// After the first line, in any text.
bool Module::FindByLines(const Search& search, const Bounds& bounds, vbide::Selection& found) const {
  for (std::int32_t line = bounds.startLine + 1; line <= bounds.endLine; ++line) {
    const bool sieved = search.scanner.Usable() && text_.IsSpan(line - 1) &&
                        search.scanner.Find(text_.SpanBytes(line - 1), 0) == std::string_view::npos;
    if (!sieved && FindInLine(search, line, bounds, found)) return true;
  }
  return false;
}

ComposedFile Module::Compose() const {
  const CodePage& page = text_.Page();
  const std::size_t count = static_cast<std::size_t>(text_.Count());
  const std::size_t savedCount = saved_->Lines().size();
  const std::vector<std::int32_t> sinceSaved = text_.LinesSinceSaved();

  // A line that was never touched keeps its bytes on both sides, so that it counts as the same however its characters
  // are spelt; a line that was typed anew is compared by what its text encodes to.
  std::vector<std::string> encoded(count);
  std::vector<std::string_view> lines(count);
  std::vector<bool> untouched(savedCount, false);
  for (std::size_t i = 0; i < count; ++i) {
    const auto index = static_cast<std::int32_t>(i);
    if (text_.IsSpan(index)) {
      lines[i] = text_.SpanBytes(index);
      const auto was = static_cast<std::size_t>(sinceSaved[i]);
      if (was < savedCount && saved_->LineBytes(was) == lines[i]) untouched[was] = true;
      continue;
    }
    const std::u16string_view typed = text_.TypedText(index);
    std::size_t failedAt = 0;
    if (!page.Encode(typed, encoded[i], failedAt)) RaiseLacking(page, index + 1, typed, failedAt);
    lines[i] = encoded[i];
  }

  std::vector<std::string> respelt(savedCount);
  std::vector<std::string_view> canonical(savedCount);
  for (std::size_t i = 0; i < savedCount; ++i) {
    canonical[i] = saved_->LineBytes(i);
    if (untouched[i] || AreAscii(canonical[i])) continue;
    respelt[i] = Canonical(page, canonical[i]);
    canonical[i] = respelt[i];
  }
  return ComposeFile(*saved_, canonical, lines);
}

void Module::MarkSaved(std::shared_ptr<const SourceFile> file) {
  Deref(file);
  saved_ = std::move(file);
  text_.MarkSaved();
}

}  // namespace quorvane::workbench

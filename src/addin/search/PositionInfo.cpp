#include "addin/search/PositionInfo.h"

#include <algorithm>

#include "addin/core/ErrorManager.h"
#include "addin/core/Globals.h"
#include "addin/core/LanguageManager.h"
#include "addin/search/CharacterColumns.h"
#include "addin/search/CodeNavigator.h"
#include "addin/search/CommentFilter.h"
#include "addin/search/OffsetIndex.h"
#include "addin/search/ProcKindName.h"
#include "addin/search/ProcedureLines.h"
#include "addin/settings/GlobalSetting.h"
#include "base/Checked.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

constexpr std::int32_t kLineBreak = 2;  // CR LF

/// Up to here a place has a screen column that 16 bits hold, also when all characters before it are wide.
constexpr std::int32_t kSafePlace = 16384;

}  // namespace

PositionInfo::PositionInfo() = default;
PositionInfo::~PositionInfo() = default;

vbide::CodeModule& PositionInfo::Code() const {
  return Deref(mobjCodeObject);
}

std::u16string PositionInfo::LineText(std::int32_t y) const {
  return Code().Lines(y, 1);
}

std::int32_t PositionInfo::ScreenX1() const {
  return ScreenColumnOf(mlngX1, LineText(mlngY1));
}

std::int32_t PositionInfo::ScreenX2() const {
  return ScreenColumnOf(mlngX2, LineText(mlngY2));
}

void PositionInfo::CheckScreenColumns() const {
  if (mlngX1 > kSafePlace) ScreenX1();
  if (mlngX2 > kSafePlace) ScreenX2();
}

void PositionInfo::SetScreenX1(std::int32_t column) {
  mlngX1 = CharacterAt(column, LineText(mlngY1));
}

void PositionInfo::SetScreenX2(std::int32_t column) {
  mlngX2 = CharacterAt(column, LineText(mlngY2));
}

void PositionInfo::SetScreenColumns(std::int32_t first, std::int32_t last) {
  if (mlngY1 != mlngY2) {
    SetScreenX1(first);
    SetScreenX2(last);
    return;
  }
  const std::u16string line = LineText(mlngY1);
  mlngX1 = CharacterAt(first, line);
  mlngX2 = CharacterAt(last, line);
}

std::int32_t PositionInfo::Offset(std::int32_t baseLine, std::int32_t y, std::int32_t x) const {
  const std::int32_t above = Checked32(std::int64_t{y} - baseLine);
  if (above < 1) return x;
  const auto length = static_cast<std::int64_t>(Code().Lines(baseLine, above).size());
  return Checked32(length + x + kLineBreak);
}

std::int32_t PositionInfo::StartPos(std::int32_t baseLine) const {
  return Offset(baseLine, mlngY1, mlngX1);
}

std::int32_t PositionInfo::EndPos(std::int32_t baseLine) const {
  return Offset(baseLine, mlngY2, mlngX2);
}

void PositionInfo::SetStartPos(std::int32_t baseLine, std::int32_t pos) {
  OffsetIndex index;
  SetStartPos(baseLine, pos, index);
}

void PositionInfo::SetStartPos(std::int32_t baseLine, std::int32_t pos, OffsetIndex& index) {
  const TextPlace place = index.Locate(Code(), baseLine, pos);
  mlngY1 = place.Y;
  mlngX1 = place.X;
}

void PositionInfo::SetEndPos(std::int32_t baseLine, std::int32_t pos) {
  OffsetIndex index;
  SetEndPos(baseLine, pos, index);
}

void PositionInfo::SetEndPos(std::int32_t baseLine, std::int32_t pos, OffsetIndex& index) {
  const TextPlace place = index.Locate(Code(), baseLine, pos);
  mlngY2 = place.Y;
  mlngX2 = place.X;
}

std::u16string PositionInfo::MatchStr() const {
  std::u16string text = Code().Lines(mlngY1, Checked32(std::int64_t{mlngY2} - mlngY1 + 1));
  const std::u16string_view piece = Cut(text, StartPos(mlngY1), EndPos(mlngY1));
  if (piece.size() == text.size()) return text;  // a whole module is not copied
  return std::u16string(piece);
}

std::u16string_view PositionInfo::Cut(std::u16string_view text, std::int32_t start, std::int32_t end) {
  if (start < 1 || end < start) RaiseError(ErrorNumber::InvalidProcedureCall);
  const auto begin = std::min(text.size(), static_cast<std::size_t>(start) - 1);
  return text.substr(begin, static_cast<std::size_t>(end - start));
}

bool PositionInfo::HaveComment() const {
  return HasCommentBefore(Code(), mlngY1, mlngY2, mlngX2);
}

std::int32_t PositionInfo::GetLineCount(std::u16string_view s) {
  return Checked32(std::count(s.begin(), s.end(), u'\n') + std::int64_t{1});
}

std::shared_ptr<vbide::VBComponent> PositionInfo::component() const {
  return Code().Parent();
}

std::shared_ptr<vbide::VBProject> PositionInfo::project() const {
  return Deref(Deref(component()).Collection()).Parent();
}

std::u16string PositionInfo::ProcType() const {
  vbide::ProcKind kind = vbide::ProcKind::Proc;
  Code().ProcOfLine(mlngY1, kind);
  return std::u16string(ProcKindName(kind));
}

std::u16string PositionInfo::ProcName() const {
  vbide::ProcKind kind = vbide::ProcKind::Proc;
  std::u16string name = Code().ProcOfLine(mlngY1, kind);
  return name.empty() ? u"(Declarations)" : name;
}

std::u16string PositionInfo::line() const {
  return LineText(mlngY1);
}

void PositionInfo::Show() const {
  vbide::CodeModule& code = Code();
  ShowInHost(code, {mlngY1, ScreenX1(), mlngY2, ScreenX2()});
}

std::int32_t PositionInfo::RelativeStartLine(std::int32_t rlc) const {
  return std::max(Checked32(std::int64_t{mlngY1} - rlc), 1);
}

std::u16string PositionInfo::RelativeText(std::optional<std::int32_t> rlc) const {
  const std::int32_t around = rlc.value_or(SettingRelativeLineCount());
  const std::int64_t count = 2 * std::int64_t{around} + mlngY2 - mlngY1 + 1;
  return Code().Lines(RelativeStartLine(around), Checked32(count));
}

std::int32_t PositionInfo::RelativeMatchStartPos(std::optional<std::int32_t> rlc) const {
  return StartPos(RelativeStartLine(rlc.value_or(SettingRelativeLineCount())));
}

std::int32_t PositionInfo::RelativeMatchEndPos(std::optional<std::int32_t> rlc) const {
  return EndPos(RelativeStartLine(rlc.value_or(SettingRelativeLineCount())));
}

void PositionInfo::GetSelection(const vbide::CodePane& pane) {
  mobjCodeObject = pane.CodeModule();
  const vbide::Selection selection = pane.GetSelection();
  mlngY1 = selection.StartLine;
  mlngY2 = selection.EndLine;
  SetScreenX1(selection.StartColumn);
  SetScreenX2(selection.EndColumn);
}

void PositionInfo::GetProcedure(const vbide::CodePane& pane) {
  GetSelection(pane);
  const LineRange lines = ProcedureAround(Code(), mlngY1);
  mlngY1 = lines.First;
  mlngX1 = 1;
  mlngY2 = lines.Last;
  EndAtLineEnd();
}

void PositionInfo::GetAllCode(const std::shared_ptr<vbide::CodeModule>& code) {
  mobjCodeObject = code;
  mlngY1 = 1;
  mlngX1 = 1;
  mlngY2 = Code().CountOfLines();
  EndAtLineEnd();
}

void PositionInfo::EndAtLineEnd() {
  mlngX2 = Checked32(static_cast<std::int64_t>(LineText(mlngY2).size()) + kLineBreak);
}

void PositionInfo::GetSelInfo(gsArea area) {
  if (area != gsCurModule && area != gsCurProcedure && area != gsSelection) return;
  CheckActiveCodePane();
  const auto pane = ActivePane();
  if (area == gsCurModule) GetAllCode(pane->CodeModule());
  if (area == gsCurProcedure) GetProcedure(*pane);
  if (area == gsSelection) GetSelection(*pane);
}

void PositionInfo::CheckActiveCodePane() const {
  if (ActivePane()) return;
  Deref(Globals::gobjErrorManager).Raise(kErrNoCodePane, Globals::Language().GetString(StringId::NoCodePane));
}

void PositionInfo::TearDown() {
  mobjCodeObject.reset();
  mobjParent = nullptr;
}

std::int16_t PositionInfo::SettingRelativeLineCount() {
  return Deref(Globals::gobjSetting).mintRelativeLineCount;
}

std::shared_ptr<vbide::CodePane> PositionInfo::ActivePane() {
  return Deref(Globals::gobjVBE).ActiveCodePane();
}

}  // namespace quorvane

// Replace all: works directly on the code of a region and neither uses nor changes the results, so that no stored place
// has to survive an edit. What stands left and right of the region on its first and last line is kept. The multi-line
// path makes one edit for the whole region, the single-line path one for each line that changes, from top to bottom.

#include <algorithm>

#include "addin/core/Globals.h"
#include "addin/core/Utilities.h"
#include "addin/search/ICondInfo.h"
#include "addin/search/PositionInfo.h"
#include "addin/search/TaskManager.h"
#include "base/Error.h"
#include "base/Text.h"
#include "platform/RegExp.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

/// The first `count` characters, all when there are fewer; a negative count raises error 5.
std::u16string Left(const std::u16string& s, std::int64_t count) {
  if (count < 0) RaiseError(ErrorNumber::InvalidProcedureCall);
  return s.substr(0, static_cast<std::size_t>(count));
}

/// From the 1-based character `from` on; a place below 1 raises error 5.
std::u16string From(const std::u16string& s, std::int64_t from) {
  if (from < 1) RaiseError(ErrorNumber::InvalidProcedureCall);
  return s.substr(std::min(s.size(), static_cast<std::size_t>(from) - 1));
}

std::u16string LineWithBreak(const PositionInfo& pos, std::int32_t y) {
  return Deref(pos.mobjCodeObject).Lines(y, 1).append(kCrLf);
}

std::u16string LeftOfRegion(const PositionInfo& pos) {
  return Left(LineWithBreak(pos, pos.mlngY1), std::int64_t{pos.mlngX1} - 1);
}

std::u16string RightOfRegion(const PositionInfo& pos) {
  return From(LineWithBreak(pos, pos.mlngY2), pos.mlngX2);
}

void DropFinalBreak(std::u16string& s) {
  if (s.ends_with(kCrLf)) s.resize(s.size() - kCrLf.size());
}

/// Makes a lone CR or LF at the end, which can only come from the replacement, a whole line break. Else it would join
/// the break of the line after it, which is taken off again or passes for no line of its own.
void CompleteFinalBreak(std::u16string& s) {
  if (s.ends_with(kCrLf) || !(s.ends_with(u'\r') || s.ends_with(u'\n'))) return;
  s.pop_back();
  s += kCrLf;
}

std::int32_t CountIn(RegExp& regExp, std::u16string_view text) {
  return static_cast<std::int32_t>(regExp.Execute(text).size());
}

}  // namespace

void TaskManager::ReplaceRegExp(PositionInfo& pos) {
  if (mobjCond->RegSingleLine()) {
    ReplaceSingleLine(pos);
  } else {
    ReplaceMultiLine(pos);
  }
}

void TaskManager::ReplaceMultiLine(PositionInfo& pos) {
  RegExp& regExp = Prepared(multiLineRegExp_, true);
  const std::u16string text = pos.MatchStr();
  if (!regExp.Test(text)) return;
  const std::int32_t places = OnReplaced ? CountIn(regExp, text) : 0;
  const std::u16string replacement = Deref(Globals::gobjUtilities).ReplaceSpecialChar(mobjCond->ReplaceStr());
  const std::u16string right = RightOfRegion(pos);
  std::u16string code = LeftOfRegion(pos) + regExp.Replace(text, replacement);
  if (right.size() <= kCrLf.size()) CompleteFinalBreak(code);
  code += right;
  DropFinalBreak(code);
  vbide::CodeModule& module = *pos.mobjCodeObject;
  module.DeleteLines(pos.mlngY1, pos.mlngY2 - pos.mlngY1 + 1);
  module.InsertLines(pos.mlngY1, code);
  if (OnReplaced) OnReplaced(places);
}

void TaskManager::ReplaceSingleLine(PositionInfo& pos) {
  RegExp& regExp = Prepared(singleLineRegExp_, false);
  if (!regExp.Test(pos.MatchStr())) return;
  const std::u16string left = LeftOfRegion(pos);
  const std::u16string right = RightOfRegion(pos);
  const std::u16string replacement = mobjCond->ReplaceStr();
  const std::int32_t firstLine = pos.mlngY1;
  const std::int32_t lastLine = pos.mlngY2;
  vbide::CodeModule& module = *pos.mobjCodeObject;
  std::int32_t places = 0;
  for (std::int32_t i = firstLine; i <= lastLine; ++i) {
    std::u16string s = module.Lines(i, 1);
    if (i == lastLine) s = Left(s, std::int64_t{pos.mlngX2} - 1);
    if (i == firstLine) s = From(s, pos.mlngX1);
    if (!regExp.Test(s)) continue;
    if (OnReplaced) places += CountIn(regExp, s);
    s = regExp.Replace(s, replacement);
    if (i == lastLine) s += right;
    if (i == firstLine) s.insert(0, left);
    DropFinalBreak(s);
    module.DeleteLines(i, 1);
    module.InsertLines(i, s);
  }
  if (OnReplaced && places > 0) OnReplaced(places);
}

}  // namespace quorvane

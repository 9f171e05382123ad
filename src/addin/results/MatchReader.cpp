#include "addin/results/MatchReader.h"

#include "addin/search/CharacterColumns.h"
#include "addin/search/PositionInfo.h"
#include "base/Checked.h"

namespace quorvane {

bool MatchReader::IsOnOneLine() const {
  return position_.mlngY1 == position_.mlngY2;
}

const std::u16string& MatchReader::Line() {
  if (!line_) line_ = position_.line();
  return *line_;
}

std::int32_t MatchReader::ScreenX1() {
  return ScreenColumnOf(position_.mlngX1, Line());
}

std::int32_t MatchReader::ScreenX2() {
  return IsOnOneLine() ? ScreenColumnOf(position_.mlngX2, Line()) : position_.ScreenX2();
}

std::u16string MatchReader::MatchStr() {
  if (!IsOnOneLine()) return position_.MatchStr();
  return std::u16string(PositionInfo::Cut(Line(), position_.mlngX1, position_.mlngX2));
}

std::int32_t MatchReader::RelativeStartPos() {
  if (!relativeStart_) relativeStart_ = position_.RelativeMatchStartPos();
  return *relativeStart_;
}

/// Start and end on one line have the same text before them.
std::int32_t MatchReader::RelativeEndPos() {
  if (!IsOnOneLine()) return position_.RelativeMatchEndPos();
  return Checked32(std::int64_t{RelativeStartPos()} - position_.mlngX1 + position_.mlngX2);
}

}  // namespace quorvane

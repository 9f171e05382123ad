#include "addin/results/MatchField.h"

#include "addin/results/MatchReader.h"
#include "addin/search/PositionInfo.h"
#include "base/Error.h"
#include "vbide/VBIDE.h"

namespace quorvane {

namespace {

using Reader = MatchReader&;

constexpr MatchFieldInfo Number(std::string_view name, std::int32_t (*read)(Reader)) {
  return {name, read, nullptr};
}
constexpr MatchFieldInfo Text(std::string_view name, std::u16string (*read)(Reader)) {
  return {name, nullptr, read};
}

constexpr std::array<MatchFieldInfo, kMatchFieldCount> kFields{{
    Number("ID", [](Reader m) { return m.Position().mlngID; }),
    Number("Y1", [](Reader m) { return m.Position().mlngY1; }),
    Number("Y2", [](Reader m) { return m.Position().mlngY2; }),
    Number("X1", [](Reader m) { return m.Position().mlngX1; }),
    Number("X2", [](Reader m) { return m.Position().mlngX2; }),
    Number("ScreenX1", [](Reader m) { return m.ScreenX1(); }),
    Number("ScreenX2", [](Reader m) { return m.ScreenX2(); }),
    Number("StartPos", [](Reader m) { return m.Position().StartPos(m.Position().mlngY1); }),
    Number("EndPos", [](Reader m) { return m.Position().EndPos(m.Position().mlngY1); }),
    Text("MatchStr", [](Reader m) { return m.MatchStr(); }),
    Text("ComponentName", [](Reader m) { return Deref(m.Position().component()).Name(); }),
    Text("ProjectName", [](Reader m) { return Deref(m.Position().project()).Name(); }),
    Number("RelativeStartPos", [](Reader m) { return m.RelativeStartPos(); }),
    Number("RelativeEndPos", [](Reader m) { return m.RelativeEndPos(); }),
    Text("ProcName", [](Reader m) { return m.Position().ProcName(); }),
    Text("ProcType", [](Reader m) { return m.Position().ProcType(); }),
    Text("Line", [](Reader m) { return m.Line(); }),
}};

}  // namespace

const std::array<MatchFieldInfo, kMatchFieldCount>& MatchFields() {
  return kFields;
}

}  // namespace quorvane

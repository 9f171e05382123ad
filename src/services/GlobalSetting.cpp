#include "services/GlobalSetting.h"

#include "resources/DefaultStylesheet.h"
#include "search/PositionInfo.h"
#include "services/ObjStat.h"

namespace quorvane {

GlobalSetting::GlobalSetting() {
  ObjStat::AddObject(this);
}
GlobalSetting::~GlobalSetting() {
  ObjStat::RemoveObject(this);
}

std::u16string GlobalSetting::DefaultXSL() {
  return std::u16string(DefaultStylesheet());
}

void GlobalSetting::SetXSL(std::u16string_view xsl) {
  if (xsl == mstrXSL) return;
  mstrXSL = xsl;
  PropertyChange.Raise(u"XSL");
}

std::shared_ptr<PositionInfo> GlobalSetting::PosInfo() {
  if (!mobjPosInfo) mobjPosInfo = std::make_shared<PositionInfo>();
  mobjPosInfo->GetSelInfo(menumArea);
  return mobjPosInfo;
}

}  // namespace quorvane

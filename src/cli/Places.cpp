#include "cli/Places.h"

#include <memory>

#include "addin/search/PositionInfo.h"
#include "base/Error.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"

namespace quorvane::cli {

FilePlace PlaceOf(const PositionInfo& pi) {
  const auto component = std::dynamic_pointer_cast<workbench::Component>(pi.component());
  return {Deref(component).Path(), Deref(component->TheModule()).FileLine(pi.mlngY1)};
}

}  // namespace quorvane::cli

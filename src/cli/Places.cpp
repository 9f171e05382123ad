#include "cli/Places.h"

#include <memory>

#include "base/Error.h"
#include "search/PositionInfo.h"
#include "workbench/Component.h"
#include "workbench/Module.h"

namespace quorvane::cli {

FilePlace PlaceOf(const PositionInfo& pi) {
  const auto component = std::dynamic_pointer_cast<workbench::Component>(pi.component());
  return {Deref(component).Path(), Deref(component->TheModule()).FileLine(pi.mlngY1)};
}

}  // namespace quorvane::cli

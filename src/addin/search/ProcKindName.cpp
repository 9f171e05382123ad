#include "addin/search/ProcKindName.h"

namespace quorvane {

std::u16string_view ProcKindName(vbide::ProcKind kind) {
  switch (kind) {
    case vbide::ProcKind::Let:
      return u"Let";
    case vbide::ProcKind::Set:
      return u"Set";
    case vbide::ProcKind::Get:
      return u"Get";
    case vbide::ProcKind::Proc:
      break;
  }
  return u"Proc";
}

}  // namespace quorvane

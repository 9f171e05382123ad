#include "addin/core/ObjectRegistry.h"

#include <algorithm>

#include "base/Error.h"
#include "base/Text.h"

namespace quorvane {

void ObjectRegistry::Add(std::string_view className, std::shared_ptr<void> object, ILib* lib) {
  if (std::ranges::any_of(entries_, [&](const Entry& entry) { return entry.ClassName == className; })) {
    RaiseError(ErrorNumber::DuplicateKey, ErrorText(ErrorNumber::DuplicateKey) + u": " + FromUtf8(className));
  }
  entries_.push_back({std::string(className), std::move(object), lib});
}

}  // namespace quorvane

#pragma once

#include <memory>

namespace quorvane {

class IResultListDoc;

/// How the single instances of Globals come to be; it knows their classes, which the slots themselves need not.
namespace Globals {

/// Makes and registers all shared objects, the result document last. A failure reaches the caller; the slots filled so
/// far stay filled.
void CreateObjects();
/// Makes the tool window; the result is the document inside it. Raises error 13 when that is no IResultListDoc.
std::shared_ptr<IResultListDoc> CreateResultDialog();

}  // namespace Globals

}  // namespace quorvane

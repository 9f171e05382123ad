#pragma once

struct _xmlDoc;

namespace quorvane::native {

/// True when it is certain that the stylesheet in `document`, run with an element as its initial context node, looks at
/// nothing of the source but that element, its attributes and what stands below it, and at its position among its
/// siblings neither, and remembers nothing of it. The stylesheet is the parsed text as it was before it was compiled.
bool StaysInside(const _xmlDoc* document);

}  // namespace quorvane::native

#pragma once

#include <string>
#include <vector>

namespace quorvane::forms {

/// Pictures by 0-based index. A picture is a name; whoever draws knows what stands behind it.
class ImageList {
 public:
  std::vector<std::u16string> Images;
};

}  // namespace quorvane::forms

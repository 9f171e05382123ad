#pragma once

#include <string_view>

namespace quorvane {

/// The stylesheet that words a result line until the user edits it: 19 lines, each ended by CR LF.
std::u16string_view DefaultStylesheet();

}  // namespace quorvane

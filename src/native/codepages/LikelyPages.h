#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane::native {

/// How much of what `bytes` hold beyond ASCII reads like text in a code page, by its usual name: from 0, nothing, to 1,
/// all of it; 1 where there is nothing beyond ASCII.
double Readable(std::string_view page, std::string_view bytes);

/// The code pages in which nearly all of `bytes` reads like text, two at most, the likeliest first. Empty where there
/// is next to nothing beyond ASCII.
std::vector<std::string> LikelyPages(std::string_view bytes);

}  // namespace quorvane::native

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace quorvane {

/// Paths stand in texts as UTF-8 with '/' between the names, whatever the system makes of its own; these two lead from
/// one to the other. A name that is not UTF-8 keeps its bytes on systems where names are bytes.
std::filesystem::path FilePath(std::string_view utf8);
std::string PathText(const std::filesystem::path& path);

}  // namespace quorvane

#pragma once

#include <string>

namespace quorvane::cli {

/// The text of a stylesheet file, in the encoding that its byte order mark or its XML declaration names, else UTF-8.
/// Raises an error that names the file when it cannot be read or decoded.
std::u16string ReadStylesheet(const std::string& path);

}  // namespace quorvane::cli

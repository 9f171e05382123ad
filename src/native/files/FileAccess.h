#pragma once

#include <string>

namespace quorvane::native {

/// Whether the user may write to a file, or make files in a folder, as far as the system tells beforehand;
/// errno says why not. UTF-8.
bool CanWrite(const std::string& path);

/// The file itself, absolute, whatever way leads to it; empty when nothing is there. UTF-8 with '/'.
std::string RealPath(const std::string& path);

}  // namespace quorvane::native

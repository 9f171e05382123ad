#pragma once

#include <string>

namespace quorvane {
class App;
}

namespace quorvane::windows {

// What this program's own file, which is not the host's, tells of itself, and where its user's files go.

/// The whole path of the file.
std::u16string OwnPath();
/// The user's folder for configuration files of this program. It need not exist.
std::u16string ConfigFolder();
/// Takes folder and version of the file. A file without a version leaves that as it is.
void DescribeOwnFile(App& app);

}  // namespace quorvane::windows

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "support/Raised.h"
#include "support/TempFolder.h"
#include "workbench/save/FileSaver.h"

namespace quorvane::workbench {

namespace fs = std::filesystem;

inline FileToSave ToSave(const std::string& path, std::string bytes) {
  return {path, std::move(bytes), native::FileStamp::Of(path).value()};
}

inline std::vector<std::string> NamesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(PathText(entry.path().filename()));
  std::sort(names.begin(), names.end());
  return names;
}

/// The error that saving raises; Number 0 when it raises none.
inline test::RaisedError ErrorOf(const std::vector<FileToSave>& files, const RenameFile& rename = {}) {
  return test::Raised([&] { SaveFiles(files, rename); });
}

class FileSaverTest : public testing::Test {
 protected:
  test::TempFolder folder_;
  const std::string a_ = folder_.Write("a.bas", "old a"), b_ = folder_.Write("b.bas", "old b");
};

}  // namespace quorvane::workbench

// Group and project files of any bytes, in a code page of two bytes.
#include "Input.h"
#include "native/codepages/CodePages.h"
#include "workbench/project/GroupFile.h"
#include "workbench/project/PathFinder.h"
#include "workbench/project/ProjectFile.h"

using namespace quorvane;

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static const auto page = native::NewCodePage("932");
  const std::string_view text(reinterpret_cast<const char*>(bytes), size);
  const auto group = workbench::GroupFile::Parse(text, *page);
  fuzz::Expect(!group.startUp || *group.startUp < group.projects.size());
  const auto project = workbench::ProjectFile::Parse(text, *page);
  workbench::PathFinder finder(*page);
  for (const auto& entry : project.entries) finder.Find("/proc/self", entry.path);
  return 0;
}

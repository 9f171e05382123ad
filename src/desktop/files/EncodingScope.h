#pragma once

#include <memory>

namespace quorvane::workbench {
class Component;
class Project;
}  // namespace quorvane::workbench

namespace quorvane::desktop {

/// What is opened in a code page: one module, with its project; else all of a project; else, with neither, the group.
struct EncodingScope {
  std::shared_ptr<workbench::Project> project;
  std::shared_ptr<workbench::Component> component;
};

}  // namespace quorvane::desktop

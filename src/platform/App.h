#pragma once

#include <string>

namespace quorvane {

/// What the add-in knows of its own program.
class App {
 public:
  virtual ~App() = default;

  std::u16string Title = u"Quorvane插件";  ///< caption of message boxes, name in the settings store
};

}  // namespace quorvane

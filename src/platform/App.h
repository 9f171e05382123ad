#pragma once

#include <cstdint>
#include <string>

namespace quorvane {

/// What the add-in knows of its own program.
class App {
 public:
  App();
  virtual ~App() = default;

  std::u16string Title;  ///< caption of message boxes; follows the language
  std::u16string Path;   ///< folder of the program's file, without a separator at its end
  /// Of the build; the part between Minor and Revision is always 0.
  std::int32_t Major;
  std::int32_t Minor;
  std::int32_t Revision;
  /// Web host of the project's pages, with a port where it needs one. The build option QUORVANE_PROJECT_HOST, unless
  /// the environment variable of that name holds another.
  std::u16string ProjectHost;

  /// False for the reserved example, which is what a build has that was given no host: nobody answers there.
  bool HasProjectHost() const;

  /// Path of a file in the program's folder.
  std::u16string FileBeside(const std::u16string& name) const;
};

/// The title before a language is chosen. Settings are stored under it in every language.
inline constexpr char16_t kStartingTitle[] = u"Quorvane插件";

}  // namespace quorvane

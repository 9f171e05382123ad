#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quorvane::workbench {
class Module;
}

namespace quorvane::desktop {

/// A line of a module that is found again after edits, whoever made them and whether or not a window shows it: by its
/// text and that of its two neighbours, nearest to where it last stood. A line whose text was edited between the same
/// neighbours is still the line.
class LineAnchor {
 public:
  /// `line` is 1-based.
  LineAnchor(const std::shared_ptr<workbench::Module>& module, std::int32_t line);

  /// Null when its project is closed.
  std::shared_ptr<workbench::Module> TheModule() const;
  /// 1-based, as the module is now.
  std::int32_t Line();

 private:
  struct Words {
    std::u16string before, own, behind;
  };
  static Words Read(const workbench::Module& module, std::int32_t line);
  int Likeness(const Words& words) const;
  std::int32_t Nearest(const workbench::Module& module) const;

  std::weak_ptr<workbench::Module> module_;
  std::int32_t line_;
  Words words_;
  std::uint64_t revision_ = 0;  ///< of the module, as of line_ and words_
};

}  // namespace quorvane::desktop

#include "desktop/navigate/LineAnchor.h"

#include <algorithm>

#include "workbench/model/Module.h"

namespace quorvane::desktop {

namespace {

constexpr std::int32_t kReach = 5000;  // lines that it looks through, above and below
constexpr int kSame = 4;
constexpr int kLeast = 2;  // its own text, or both neighbours

}  // namespace

LineAnchor::LineAnchor(const std::shared_ptr<workbench::Module>& module, std::int32_t line)
    : module_(module), line_(line), words_(Read(*module, line)), revision_(module->Revision()) {}

std::shared_ptr<workbench::Module> LineAnchor::TheModule() const {
  auto module = module_.lock();
  return module && module->Parent() ? module : nullptr;
}

LineAnchor::Words LineAnchor::Read(const workbench::Module& module, std::int32_t line) {
  return {line > 1 ? module.Lines(line - 1, 1) : std::u16string(), module.Lines(line, 1), module.Lines(line + 1, 1)};
}

int LineAnchor::Likeness(const Words& words) const {
  return (words.own == words_.own ? 2 : 0) + (words.before == words_.before ? 1 : 0) +
         (words.behind == words_.behind ? 1 : 0);
}

std::int32_t LineAnchor::Nearest(const workbench::Module& module) const {
  const std::int32_t last = std::max(1, module.CountOfLines());
  std::int32_t best = std::clamp(line_, 1, last);
  int likeness = kLeast - 1;
  for (std::int32_t distance = 0; distance <= kReach && likeness < kSame; ++distance) {
    const std::int32_t above = line_ - distance, below = line_ + distance;
    if (above < 1 && below > last) break;
    for (const std::int32_t line : {below, above}) {
      if (line < 1 || line > last) continue;
      const int found = Likeness(Read(module, line));
      if (found <= likeness) continue;
      likeness = found;
      best = line;
    }
  }
  return best;
}

std::int32_t LineAnchor::Line() {
  const auto module = TheModule();
  if (!module || module->Revision() == revision_) return line_;
  line_ = Nearest(*module);
  words_ = Read(*module, line_);
  revision_ = module->Revision();
  return line_;
}

}  // namespace quorvane::desktop

#include "desktop/navigate/Bookmarks.h"

#include <QTextBlock>
#include <algorithm>

#include "desktop/editor/CodeArea.h"
#include "desktop/editor/CodeEdit.h"
#include "desktop/editor/CodeWindow.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

Bookmarks::Bookmarks(workbench::Workbench& workbench, CodeArea& code) : workbench_(workbench), code_(code) {
  soon_.setSingleShot(true);
  soon_.setInterval(0);
  QObject::connect(&soon_, &QTimer::timeout, &soon_, [this] { Spread(); });
  changed_ = code_.CurrentChanged.Subscribe([this] {
    if (!marks_.empty()) soon_.start();
  });
}

std::vector<std::int32_t> Bookmarks::LinesOf(const workbench::Module& module) {
  std::vector<std::int32_t> lines;
  for (LineAnchor& mark : marks_) {
    if (mark.TheModule().get() == &module) lines.push_back(mark.Line());
  }
  std::ranges::sort(lines);
  lines.erase(std::ranges::unique(lines).begin(), lines.end());
  return lines;
}

void Bookmarks::Toggle() {
  CodeWindow* window = code_.Current();
  if (window == nullptr) return;
  CodeEdit& editor = window->Editor();
  editor.Refresh();
  const std::int32_t line = editor.textCursor().blockNumber() + 1;
  const auto gone = std::erase_if(
      marks_, [&](LineAnchor& mark) { return mark.TheModule() == editor.TheModule() && mark.Line() == line; });
  if (gone == 0) marks_.emplace_back(editor.TheModule(), line);
  Spread();
}

bool Bookmarks::Step(int step) {
  std::erase_if(marks_, [](const LineAnchor& mark) { return !mark.TheModule(); });
  CodeWindow* window = code_.Current();
  const auto current = window != nullptr ? window->TheComponent() : nullptr;
  const std::int32_t line = window != nullptr ? window->Editor().textCursor().blockNumber() + 1 : 0;
  std::vector<Place> places;
  std::size_t before = 0, behind = 0;  // how many places are before the caret, and before or at it
  bool passed = false;
  for (const auto& project : workbench_.Projects()) {
    for (const auto& component : project->Components()) {
      if (!component->TheModule()) continue;
      const bool here = component == current;
      for (const std::int32_t marked : LinesOf(*component->TheModule())) {
        if (here ? marked < line : !passed) before = places.size() + 1;
        if (here ? marked <= line : !passed) behind = places.size() + 1;
        places.emplace_back(component, marked);
      }
      passed = passed || here;
    }
  }
  if (places.empty()) return false;
  const std::size_t index = step > 0 ? behind % places.size() : (before + places.size() - 1) % places.size();
  places[index].first->TheModule()->CodePane()->Show();
  if (CodeWindow* shown = code_.Current()) {
    shown->Editor().GoToLine(places[index].second);
    shown->Editor().setFocus();
  }
  return true;
}

void Bookmarks::Spread() {
  soon_.stop();
  for (CodeWindow* window : code_.CodeWindows()) window->Editor().ShowBookmarks(LinesOf(*window->Editor().TheModule()));
}

}  // namespace quorvane::desktop

#include "workbench/model/Desk.h"

#include <algorithm>

#include "workbench/model/HostWindow.h"
#include "workbench/model/Pane.h"

namespace quorvane::workbench {

void Desk::Add(const std::shared_ptr<Pane>& pane) {
  panes_.push_back(pane);
}

void Desk::Remove(const Pane& pane) {
  std::erase_if(panes_, [&](const auto& held) {
    const auto alive = held.lock();
    return !alive || alive.get() == &pane;
  });
  Refresh();
}

bool Desk::BringForward(const Pane& pane) {
  const auto found = std::ranges::find_if(panes_, [&](const auto& held) { return held.lock().get() == &pane; });
  if (found == panes_.end()) return false;
  std::rotate(panes_.begin(), found, found + 1);
  Refresh();
  return true;
}

std::vector<std::shared_ptr<Pane>> Desk::Panes() const {
  std::vector<std::shared_ptr<Pane>> alive;
  alive.reserve(panes_.size());
  for (const auto& held : panes_) {
    if (auto pane = held.lock()) alive.push_back(std::move(pane));
  }
  return alive;
}

std::shared_ptr<Pane> Desk::ActivePane() const {
  for (const auto& held : panes_) {
    auto pane = held.lock();
    if (pane && pane->TheWindow()->Visible()) return pane;
  }
  return nullptr;
}

void Desk::Refresh() {
  const std::shared_ptr<Pane> now = ActivePane();
  if (now == active_.lock()) return;
  active_ = now;
  ActivePaneChanged.Raise();
}

}  // namespace quorvane::workbench

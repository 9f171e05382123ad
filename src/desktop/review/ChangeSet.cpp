#include "desktop/review/ChangeSet.h"

#include <algorithm>
#include <utility>

#include "desktop/review/ModuleChanges.h"
#include "workbench/model/Component.h"
#include "workbench/model/Module.h"
#include "workbench/model/Project.h"
#include "workbench/model/Workbench.h"

namespace quorvane::desktop {

namespace {

constexpr int kSoon = 120;  // ms after the first edit, so that typing does not wait for a comparison

}  // namespace

ChangeSet::ChangeSet(workbench::Workbench& workbench) : workbench_(workbench) {
  soon_.setSingleShot(true);
  QObject::connect(&soon_, &QTimer::timeout, &soon_, [this] { Update(); });
  projects_ = workbench_.ProjectsChanged.Subscribe([this] { Listen(); });
}

ChangeSet::~ChangeSet() = default;

void ChangeSet::Follow(bool wanted) {
  if (wanted == wanted_) return;
  wanted_ = wanted;
  Listen();
}

void ChangeSet::Listen() {
  edits_.clear();
  soon_.stop();
  if (!wanted_) return;
  for (const auto& project : workbench_.Projects()) {
    for (const auto& component : project->Components()) {
      if (!component->TheModule()) continue;
      edits_.push_back(component->TheModule()->Changed.Subscribe([this] {
        if (!soon_.isActive()) soon_.start(kSoon);
      }));
    }
  }
  Update();
}

void ChangeSet::Update() {
  soon_.stop();
  std::vector<std::shared_ptr<ModuleChanges>> now;
  bool changed = false;
  for (const auto& project : workbench_.Projects()) {
    for (const auto& component : project->Components()) {
      if (!component->TheModule() || !component->TheModule()->Modified()) continue;
      const auto known = std::ranges::find(modules_, component, &ModuleChanges::TheComponent);
      auto module = known != modules_.end() ? *known : std::make_shared<ModuleChanges>(component);
      changed = module->Update() || changed;
      if (!module->Hunks().empty()) now.push_back(std::move(module));
    }
  }
  if (!changed && now == modules_) return;
  modules_ = std::move(now);
  Updated.Raise();
}

}  // namespace quorvane::desktop

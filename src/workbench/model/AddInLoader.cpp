#include "workbench/model/AddInLoader.h"

#include <algorithm>

#include "base/Error.h"
#include "base/Text.h"
#include "workbench/model/HostAddins.h"
#include "workbench/model/HostWindows.h"
#include "workbench/model/Workbench.h"

namespace quorvane::workbench {

namespace {

auto Named(std::u16string_view progId) {
  return [progId](const auto& entry) { return EqualsNoCaseAscii(entry.first, progId); };
}

}  // namespace

AddInLoader::AddInLoader(std::shared_ptr<Workbench> workbench) : workbench_(std::move(workbench)) {
  Deref(workbench_);
}

AddInLoader::~AddInLoader() {
  UnloadAll(vbide::DisconnectMode::HostShutdown);
}

void AddInLoader::Register(const std::u16string& progId, Factory factory) {
  std::erase_if(factories_, Named(progId));
  factories_.emplace_back(progId, std::move(factory));
  workbench_->TheAddins()->Register(progId);
}

void AddInLoader::Load(std::u16string_view progId, vbide::ConnectMode mode) {
  if (Loaded(progId)) return;
  const auto factory = std::ranges::find_if(factories_, Named(progId));
  if (factory == factories_.end()) {
    RaiseError(ErrorNumber::CannotCreateObject, u"Cannot create the add-in " + std::u16string(progId));
  }
  const std::u16string name = factory->first;
  const auto addIn = factory->second();
  try {
    Deref(addIn).OnConnection(workbench_, mode, workbench_->TheAddins()->Item(name));
  } catch (...) {
    RemoveWindows(name);
    throw;
  }
  loaded_.emplace_back(name, addIn);
}

bool AddInLoader::Loaded(std::u16string_view progId) const {
  return std::ranges::any_of(loaded_, Named(progId));
}

void AddInLoader::Unload(std::u16string_view progId, vbide::DisconnectMode mode) {
  const auto found = std::ranges::find_if(loaded_, Named(progId));
  if (found == loaded_.end()) return;
  const auto [name, addIn] = std::move(*found);
  loaded_.erase(found);
  try {
    addIn->OnDisconnection(mode);
  } catch (...) {
    RemoveWindows(name);
    throw;
  }
  RemoveWindows(name);
}

void AddInLoader::RemoveWindows(const std::u16string& progId) {
  workbench_->TheWindows()->Remove(*workbench_->TheAddins()->Item(progId));
}

void AddInLoader::UnloadAll(vbide::DisconnectMode mode) {
  while (!loaded_.empty()) {
    try {
      Unload(std::u16string(loaded_.back().first), mode);
    } catch (...) {
      // The others go all the same.
    }
  }
}

}  // namespace quorvane::workbench

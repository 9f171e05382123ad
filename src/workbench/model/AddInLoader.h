#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vbide/VBIDE.h"

namespace quorvane::workbench {

class Workbench;

/// Loads add-ins by ProgID, upper and lower case alike, and lets them go: fires the events of their connection.
class AddInLoader {
 public:
  using Factory = std::function<std::shared_ptr<vbide::AddInInstance>()>;

  explicit AddInLoader(std::shared_ptr<Workbench> workbench);
  /// Lets the add-ins go that are still loaded, as at the end of the host.
  ~AddInLoader();
  AddInLoader(const AddInLoader&) = delete;
  AddInLoader& operator=(const AddInLoader&) = delete;

  /// Enters the add-in into the host's records. A second factory of one ProgID takes the place of the first.
  void Register(const std::u16string& progId, Factory factory);

  /// Makes the add-in and fires OnConnection; an add-in whose OnConnection raises is not loaded, and the error reaches
  /// the caller. One that is loaded is left alone. Error 429 for a ProgID without a factory.
  void Load(std::u16string_view progId, vbide::ConnectMode mode);
  bool Loaded(std::u16string_view progId) const;
  /// Fires OnDisconnection and drops the add-in and its tool windows, also when that raises; the error then reaches the
  /// caller. One that is not loaded is left alone.
  void Unload(std::u16string_view progId, vbide::DisconnectMode mode);
  /// All of them, the last loaded first. What they raise is ignored.
  void UnloadAll(vbide::DisconnectMode mode);

 private:
  void RemoveWindows(const std::u16string& progId);

  std::shared_ptr<Workbench> workbench_;
  std::vector<std::pair<std::u16string, Factory>> factories_;
  std::vector<std::pair<std::u16string, std::shared_ptr<vbide::AddInInstance>>> loaded_;
};

}  // namespace quorvane::workbench

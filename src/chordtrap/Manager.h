#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "base/Event.h"
#include "chordtrap/IChordTrapKeeper.h"
#include "chordtrap/Items.h"

namespace quorvane::chordtrap {

/// The state of the modifiers when a key came.
struct KeyState {
  bool Shift = false;
  bool Ctrl = false;
  bool Alt = false;
};

/// Calls commands by key. Whoever sees the keys of the host first hands them to KeyDown.
class Manager {
 public:
  Manager() = default;
  Manager(const Manager&) = delete;
  Manager& operator=(const Manager&) = delete;

  /// Drops the edits made since BeginEdit, which ends the edit; does nothing without one.
  void Revert();
  chordtrap::Items& Items() { return items_; }
  /// From now on the keys work.
  void Start() { running_ = true; }
  /// From now on they do not.
  void Stop() { running_ = false; }
  /// Takes the keys from the keeper. Raises error 13, with the name of the command, for a text that is no key; the keys
  /// before it are then taken. A key that two commands share works for the first.
  void Load(IChordTrapKeeper& keeper, const KeeperInfo& info = {});
  /// Gives all keys to the keeper, also when it refuses one; the first refusal is raised at the end.
  void Save(IChordTrapKeeper& keeper, const KeeperInfo& info = {});

  /// vkCode, ks, Cancel. Raised for a key that belongs to a command; a cancelled key is not looked at any further.
  Event<std::int32_t, const KeyState&, bool&> BeforeProcess;

  /// A key was pressed in the host. True when a command took it, so that the host must not see it. An error of the
  /// command reaches the caller.
  bool KeyDown(std::int32_t vkCode, std::int32_t modifier);
  /// Whether KeyDown would call a command now. Raises BeforeProcess to find out.
  bool Takes(std::int32_t vkCode, std::int32_t modifier);

  /// An edit begins: Revert comes back to the keys of this moment.
  void BeginEdit();
  /// The edit is over, and its keys stay.
  void EndEdit() { before_.clear(); }

 private:
  /// The command of a key that is to be called; null when there is none or the key is held back.
  std::shared_ptr<Item> CommandOf(const KeyChord& key);

  chordtrap::Items items_;
  bool running_ = false;
  std::vector<KeyChord> before_;  ///< keys at BeginEdit, in the order of the items; empty without one
};

}  // namespace quorvane::chordtrap

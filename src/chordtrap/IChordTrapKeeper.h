#pragma once

#include <optional>
#include <string>

namespace quorvane::chordtrap {

/// Handed through from the caller of Load and Save to the keeper; no value when omitted.
using KeeperInfo = std::optional<std::u16string>;

/// Stores keys in their text form.
class IChordTrapKeeper {
 public:
  virtual ~IChordTrapKeeper() = default;

  virtual void SaveHotkey(const KeeperInfo& Info, const std::u16string& FuncName, const std::u16string& Value) = 0;
  /// The stored text, or `DefaultValue` when there is none.
  virtual std::u16string LoadHotkey(const KeeperInfo& Info, const std::u16string& FuncName,
                                    const std::u16string& DefaultValue) = 0;
};

}  // namespace quorvane::chordtrap

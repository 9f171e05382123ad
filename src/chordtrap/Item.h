#pragma once

#include <string>

#include "chordtrap/KeyChord.h"

namespace quorvane::chordtrap {

class ICommandTarget;

/// One command that a key can reach.
struct Item {
  std::u16string Description;        ///< for the user
  ICommandTarget* Target = nullptr;  ///< not owned
  std::u16string FuncName;           ///< the operation to call, and the name under which the key is kept
  KeyChord Default;
  KeyChord Key;  ///< the key of the moment; starts as the default
};

}  // namespace quorvane::chordtrap
